# What becomes of the log, and where the one instance has its place, is the system's own.
if(WIN32)
    set(app_system app/instanceplace_win.cpp app/logoutput_win.cpp)
else()
    set(app_system app/instanceplace_unix.cpp app/logoutput_unix.cpp)
endif()
target_sources(varnel_gui PRIVATE
    app/actionset.cpp app/actionset.h
    app/batch.cpp app/batch.h
    app/commandline.cpp app/commandline.h
    app/filedrops.cpp app/filedrops.h
    app/instanceplace.h
    app/logoutput.h
    app/mainwindow.cpp app/mainwindow.h
    app/sessionend.cpp app/sessionend.h
    app/settingsnotice.cpp app/settingsnotice.h
    app/shellmenus.cpp app/shellmenus.h
    app/shellplace.cpp app/shellplace.h
    app/singleinstance.cpp app/singleinstance.h
    app/stylesheet.cpp app/stylesheet.h
    app/toolscommands.cpp app/toolscommands.h
    app/viewswitchboard.cpp app/viewswitchboard.h
    ${app_system}
)
