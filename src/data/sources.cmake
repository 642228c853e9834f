# What memory there is, and getting it in large pages, is the system's own; the rest is common.
if(WIN32)
    set(data_system data/largeblock_win.cpp data/systemmemory_win.cpp)
else()
    set(data_system data/largeblock_unix.cpp data/memorygroups.cpp data/memorygroups.h
        data/systemmemory_unix.cpp)
endif()
target_sources(varnel_data PRIVATE
    data/timetext.cpp data/timetext.h
    data/varnel3data.cpp data/varnel3data.h
    data/codetables.cpp
    data/saturated.h
    data/largeblock.h
    data/systemmemory.cpp data/systemmemory.h
    ${data_system}
    data/blockarena.cpp data/blockarena.h
    data/narrownumbers.cpp data/narrownumbers.h
    data/openrecords.cpp data/openrecords.h
    data/packedcolumn.cpp data/packedcolumn.h
    data/recordblock.cpp data/recordblock.h
    data/recordcolumns.h
    data/recordlist.cpp data/recordlist.h
    data/recordreader.cpp data/recordreader.h
    data/balanceintegrator.cpp data/balanceintegrator.h
    data/figuretext.cpp data/figuretext.h
    data/processend.cpp data/processend.h
    data/voltageslope.h
)
