target_sources(varnel_gui PRIVATE
    graph/cellpicker.cpp graph/cellpicker.h
    graph/graphhost.h
    graph/graphinteraction.cpp graph/graphinteraction.h graph/graphkeys.cpp
    graph/graphnote.cpp graph/graphnote.h
    graph/graphtitle.cpp graph/graphtitle.h
    graph/graphviewport.cpp graph/graphviewport.h
    graph/mdigraphchild.cpp graph/mdigraphchild.h
    graph/titletip.cpp graph/titletip.h
)
