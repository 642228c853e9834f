# How ports are named, found and guarded is the system's own; the rest is common.
if(WIN32)
    set(ports_system ports/portinfo_win.cpp ports/portobstacle_win.cpp)
else()
    set(ports_system ports/portinfo_unix.cpp ports/portobstacle_unix.cpp)
endif()
target_sources(varnel_core PRIVATE
    ports/portinfo.cpp ports/portinfo.h
    ports/portobstacle.cpp ports/portobstacle.h
    ports/portscan.h
    ports/portwatcher.cpp ports/portwatcher.h
    ${ports_system}
)
