target_sources(varnel_gui PRIVATE
    overlay/overlayinteraction.cpp overlay/overlayinteraction.h
    overlay/overlaypainter.cpp overlay/overlaypainter.h
    overlay/overlayplot.cpp overlay/overlayplot.h
    overlay/overlaywindow.cpp overlay/overlaywindow.h
)
