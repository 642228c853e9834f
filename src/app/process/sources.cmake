# What becomes of the log and of what is told to a caller, where the one instance has its place, how the
# program is told to end, and what brings windows to the screen, is the system's own.
if(WIN32)
    set(process_system app/process/console_win.cpp app/process/instanceplace_win.cpp
        app/process/logoutput_win.cpp app/process/screenplatform_win.cpp app/process/stopsignals_win.cpp)
else()
    set(process_system app/process/console_unix.cpp app/process/instanceplace_unix.cpp
        app/process/logoutput_unix.cpp app/process/screenplatform_unix.cpp app/process/stopsignals_unix.cpp)
endif()
target_sources(varnel_gui PRIVATE
    app/process/console.h
    app/process/instanceplace.h
    app/process/logoutput.h
    app/process/screenplatform.h
    app/process/singleinstance.cpp app/process/singleinstance.h
    app/process/stopsignals.h
    ${process_system}
)
