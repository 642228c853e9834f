# Sound and sleep are the system's own; the rest is common.
if(WIN32)
    set(devices_system devices/sleepblock_win.cpp devices/soundserver_win.cpp)
else()
    set(devices_system devices/sleepblock_unix.cpp devices/sleepkeepers_unix.cpp devices/sleepkeepers.h
        devices/soundserver_unix.cpp)
    target_link_libraries(varnel_gui PRIVATE Qt5::DBus)
endif()
target_sources(varnel_gui PRIVATE
    devices/devicecommands.cpp devices/devicecommands.h
    devices/devicetargets.cpp devices/devicetargets.h
    devices/endedprocess.cpp devices/endedprocess.h
    devices/endnotice.cpp devices/endnotice.h
    devices/listenedports.cpp devices/listenedports.h
    devices/portquestions.cpp devices/portquestions.h
    devices/portretries.cpp devices/portretries.h
    devices/remotecontrols.cpp devices/remotecontrols.h
    devices/shellreaderhost.cpp devices/shellreaderhost.h
    devices/shelltargets.cpp devices/shelltargets.h
    devices/sleepblock.h
    devices/sleepinhibitor.cpp devices/sleepinhibitor.h
    devices/soundplayer.cpp devices/soundplayer.h
    devices/soundserver.h
    devices/unseenends.cpp devices/unseenends.h
    ${devices_system}
)
