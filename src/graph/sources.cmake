# The store knows no widget and belongs to the core library.
target_sources(varnel_core PRIVATE
    graph/cellselection.h
    graph/csvexport.cpp graph/csvexport.h
    graph/derivedpoints.cpp graph/derivedpoints.h
    graph/endmark.cpp graph/endmark.h
    graph/extremes.cpp graph/extremes.h
    graph/interval.cpp graph/interval.h
    graph/plotseries.cpp graph/plotseries.h
    graph/resistancefold.cpp graph/resistancefold.h
    graph/serieskinds.h
    graph/seriesstore.cpp graph/seriesstore.h
)
target_sources(varnel_gui PRIVATE
    graph/celllegend.cpp graph/celllegend.h
    graph/cellpicker.cpp graph/cellpicker.h
    graph/cursorpainter.cpp graph/cursorpainter.h
    graph/curvedata.cpp graph/curvedata.h
    graph/curveoutline.cpp graph/curveoutline.h
    graph/curvepainter.cpp graph/curvepainter.h
    graph/curvespans.cpp graph/curvespans.h
    graph/figures.cpp graph/figures.h
    graph/framepainter.cpp graph/framepainter.h
    graph/graphcanvas.cpp graph/graphcanvas.h
    graph/graphcolours.cpp graph/graphcolours.h
    graph/graphfonts.cpp graph/graphfonts.h
    graph/graphhost.h
    graph/graphinteraction.cpp graph/graphinteraction.h graph/graphkeys.cpp
    graph/graphlayout.cpp graph/graphlayout.h
    graph/graphpainter.cpp graph/graphpainter.h
    graph/graphpicture.h
    graph/graphscene.cpp graph/graphscene.h
    graph/graphtools.cpp graph/graphtools.h
    graph/graphviewport.cpp graph/graphviewport.h
    graph/graphzoom.cpp graph/graphzoom.h
    graph/inkcolumns.cpp graph/inkcolumns.h
    graph/legendpainter.cpp graph/legendpainter.h
    graph/mdigraphchild.cpp graph/mdigraphchild.h
    graph/pixels.h
    graph/processend.cpp graph/processend.h
    graph/scaledrawtime.cpp graph/scaledrawtime.h
    graph/timecolumns.cpp graph/timecolumns.h
    graph/timedivision.cpp graph/timedivision.h
    graph/valueaxispainter.cpp graph/valueaxispainter.h
    graph/valuerange.cpp graph/valuerange.h
    graph/vectorstate.cpp graph/vectorstate.h
    graph/varnelplotcurve.cpp graph/varnelplotcurve.h
)
