if(WIN32)
    set(link_system link/hangup_win.cpp)
else()
    set(link_system link/hangup_unix.cpp)
endif()
target_sources(varnel_core PRIVATE
    link/devicelink.h
    link/hangup.h
    link/lineframer.cpp link/lineframer.h
    link/readerhost.h
    link/recordingdispatcher.cpp link/recordingdispatcher.h
    link/recordinglog.h
    link/recordingsink.h
    link/serialreader.cpp link/serialreader.h
    ${link_system}
)
