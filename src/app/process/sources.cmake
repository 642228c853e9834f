# What becomes of the log, and where the one instance has its place, is the system's own.
if(WIN32)
    set(process_system app/process/instanceplace_win.cpp app/process/logoutput_win.cpp)
else()
    set(process_system app/process/instanceplace_unix.cpp app/process/logoutput_unix.cpp)
endif()
target_sources(varnel_gui PRIVATE
    app/process/instanceplace.h
    app/process/logoutput.h
    app/process/singleinstance.cpp app/process/singleinstance.h
    ${process_system}
)
