# The store knows no widget and belongs to the core library.
target_sources(varnel_core PRIVATE
    graph/cellselection.h
    graph/csvexport.cpp graph/csvexport.h
    graph/plotseries.cpp graph/plotseries.h
    graph/resistancefold.cpp graph/resistancefold.h
    graph/seriesstore.cpp graph/seriesstore.h
)
target_sources(varnel_gui PRIVATE
    graph/curvedata.cpp graph/curvedata.h
    graph/curvepainter.cpp graph/curvepainter.h
    graph/curvespans.cpp graph/curvespans.h
    graph/graphhost.h
    graph/mdigraphchild.cpp graph/mdigraphchild.h
    graph/scaledrawtime.cpp graph/scaledrawtime.h
    graph/timecolumns.cpp graph/timecolumns.h
    graph/varnelplotcurve.cpp graph/varnelplotcurve.h
)
