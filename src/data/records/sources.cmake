# Getting memory in large pages is the system's own; the rest is common.
if(WIN32)
    set(records_system data/records/largeblock_win.cpp)
else()
    set(records_system data/records/largeblock_unix.cpp)
endif()
target_sources(varnel_data PRIVATE
    data/records/balanceintegrator.cpp data/records/balanceintegrator.h
    data/records/blockarena.cpp data/records/blockarena.h
    data/records/largeblock.h
    ${records_system}
    data/records/narrownumbers.cpp data/records/narrownumbers.h
    data/records/openrecords.cpp data/records/openrecords.h
    data/records/packedcolumn.cpp data/records/packedcolumn.h
    data/records/recordblock.cpp data/records/recordblock.h
    data/records/recordcolumns.h
    data/records/recordlist.cpp data/records/recordlist.h
    data/records/recordreader.cpp data/records/recordreader.h
)
