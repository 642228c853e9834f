target_sources(varnel_gui PRIVATE
    graph/scene/celllegend.cpp graph/scene/celllegend.h
    graph/scene/cursordifference.cpp graph/scene/cursordifference.h
    graph/scene/graphcolours.cpp graph/scene/graphcolours.h
    graph/scene/graphlayout.cpp graph/scene/graphlayout.h
    graph/scene/graphrequest.h
    graph/scene/graphscene.cpp graph/scene/graphscene.h
    graph/scene/graphzoom.cpp graph/scene/graphzoom.h
    graph/scene/rounddivision.cpp graph/scene/rounddivision.h
    graph/scene/timedivision.cpp graph/scene/timedivision.h
    graph/scene/valuerange.cpp graph/scene/valuerange.h
)
