target_sources(varnel_gui PRIVATE
    graph/curves/curvedata.cpp graph/curves/curvedata.h
    graph/curves/curveoutline.cpp graph/curves/curveoutline.h
    graph/curves/curvepainter.cpp graph/curves/curvepainter.h
    graph/curves/curvespans.cpp graph/curves/curvespans.h
    graph/curves/inkcolumns.cpp graph/curves/inkcolumns.h
    graph/curves/linedashes.cpp graph/curves/linedashes.h
    graph/curves/outlinestroke.cpp graph/curves/outlinestroke.h
    graph/curves/pixels.h
    graph/curves/timecolumns.cpp graph/curves/timecolumns.h
    graph/curves/varnelplotcurve.cpp graph/curves/varnelplotcurve.h
    graph/curves/vectorstate.cpp graph/curves/vectorstate.h
)
