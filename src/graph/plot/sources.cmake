target_sources(varnel_gui PRIVATE
    graph/plot/cursorpainter.cpp graph/plot/cursorpainter.h
    graph/plot/framepainter.cpp graph/plot/framepainter.h
    graph/plot/graphcanvas.cpp graph/plot/graphcanvas.h
    graph/plot/graphfonts.cpp graph/plot/graphfonts.h
    graph/plot/graphpainter.cpp graph/plot/graphpainter.h
    graph/plot/graphtools.cpp graph/plot/graphtools.h
    graph/plot/kepttexts.cpp graph/plot/kepttexts.h
    graph/plot/legendpainter.cpp graph/plot/legendpainter.h
    graph/plot/scaledrawtime.cpp graph/plot/scaledrawtime.h
    graph/plot/straightlines.cpp graph/plot/straightlines.h
    graph/plot/valueaxispainter.cpp graph/plot/valueaxispainter.h
)
