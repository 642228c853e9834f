target_sources(varnel_gui PRIVATE
    app/actionset.cpp app/actionset.h
    app/datatoolbar.cpp app/datatoolbar.h
    app/deskarea.cpp app/deskarea.h
    app/devicecommands.cpp app/devicecommands.h
    app/displaywindows.cpp app/displaywindows.h
    app/figures.cpp app/figures.h
    app/graphwindows.cpp app/graphwindows.h
    app/listenedports.cpp app/listenedports.h
    app/mainwindow.cpp app/mainwindow.h
    app/portquestions.cpp app/portquestions.h
    app/portretries.cpp app/portretries.h
    app/shellmenus.cpp app/shellmenus.h
    app/shellreaderhost.cpp app/shellreaderhost.h
    app/statusfacts.cpp app/statusfacts.h
    app/stylesheet.cpp app/stylesheet.h
    app/viewswitchboard.cpp app/viewswitchboard.h
)
