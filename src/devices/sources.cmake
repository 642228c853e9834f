target_sources(varnel_gui PRIVATE
    devices/devicecommands.cpp devices/devicecommands.h
    devices/devicetargets.cpp devices/devicetargets.h
    devices/endedprocess.cpp devices/endedprocess.h
    devices/endnotice.cpp devices/endnotice.h
    devices/listenedports.cpp devices/listenedports.h
    devices/portquestions.cpp devices/portquestions.h
    devices/portretries.cpp devices/portretries.h
    devices/remotecontrols.cpp devices/remotecontrols.h
    devices/deskreaderhost.cpp devices/deskreaderhost.h
    devices/unseenends.cpp devices/unseenends.h
)
