if(WIN32)
    set(link_system link/hangup_win.cpp)
else()
    set(link_system link/hangup_unix.cpp)
endif()
target_sources(varnel_core PRIVATE
    link/clockcommand.cpp link/clockcommand.h
    link/devicelink.cpp link/devicelink.h
    link/hangup.h
    link/linedispatcher.cpp link/linedispatcher.h
    link/lineframer.cpp link/lineframer.h
    link/readerhost.h
    link/recordinglog.h
    link/recordingwindow.h
    link/serialreader.cpp link/serialreader.h
    ${link_system}
)
