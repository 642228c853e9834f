target_sources(varnel_gui PRIVATE
    overlay/scene/overlaylayout.cpp overlay/scene/overlaylayout.h
    overlay/scene/overlayrequest.cpp overlay/scene/overlayrequest.h
    overlay/scene/overlayscene.cpp overlay/scene/overlayscene.h
)
