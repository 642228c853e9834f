target_sources(varnel_gui PRIVATE
    app/actionset.cpp app/actionset.h
    app/explanations.cpp app/explanations.h
    app/filedrops.cpp app/filedrops.h
    app/mainwindow.cpp app/mainwindow.h app/mainwindowslots.cpp
    app/sessionend.cpp app/sessionend.h
    app/settingsnotice.cpp app/settingsnotice.h
    app/shellmenus.cpp app/shellmenus.h
    app/shellplace.cpp app/shellplace.h
    app/stylesheet.cpp app/stylesheet.h
    app/toolscommands.cpp app/toolscommands.h
    app/userguide.cpp app/userguide.h
    app/translators.cpp app/translators.h
    app/viewswitchboard.cpp app/viewswitchboard.h
)
