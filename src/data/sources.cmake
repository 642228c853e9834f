# What memory there is is the system's own; the rest is common.
if(WIN32)
    set(data_system data/systemmemory_win.cpp)
else()
    set(data_system data/memorygroups.cpp data/memorygroups.h data/systemmemory_unix.cpp)
endif()
target_sources(varnel_data PRIVATE
    data/timetext.cpp data/timetext.h
    data/varnel3data.cpp data/varnel3data.h
    data/codetables.cpp
    data/saturated.h
    data/systemmemory.cpp data/systemmemory.h
    ${data_system}
    data/figuretext.cpp data/figuretext.h
    data/processend.cpp data/processend.h
    data/voltageslope.h
)
