# Sound and sleep are the system's own; the rest is common.
if(WIN32)
    set(machine_system machine/sleepblock_win.cpp machine/soundline_win.cpp machine/soundserver_win.cpp)
    target_link_libraries(varnel_gui PRIVATE winmm)
else()
    set(machine_system machine/sleepblock_unix.cpp machine/sleepkeepers_unix.cpp machine/sleepkeepers.h
        machine/soundline_unix.cpp machine/soundserver_unix.cpp)
    target_link_libraries(varnel_gui PRIVATE Qt5::DBus Qt5::Multimedia)
endif()
target_sources(varnel_gui PRIVATE
    machine/sleepblock.h
    machine/sleepinhibitor.cpp machine/sleepinhibitor.h
    machine/soundline.h
    machine/soundplayer.cpp machine/soundplayer.h
    machine/soundserver.h
    ${machine_system}
)
