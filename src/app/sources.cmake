target_sources(varnel_gui PRIVATE
    app/actionset.cpp app/actionset.h
    app/batch.cpp app/batch.h
    app/commandline.cpp app/commandline.h
    app/explanations.cpp app/explanations.h
    app/filedrops.cpp app/filedrops.h
    app/logbookexport.cpp app/logbookexport.h
    app/logbookhost.cpp app/logbookhost.h
    app/logbookparts.cpp app/logbookparts.h
    app/mainwindow.cpp app/mainwindow.h app/mainwindowslots.cpp
    app/overlaycommands.cpp app/overlaycommands.h
    app/overlaylabel.cpp app/overlaylabel.h
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
