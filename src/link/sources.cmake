target_sources(varnel_core PRIVATE
    link/devicelink.h
    link/lineframer.cpp link/lineframer.h
    link/readerhost.h
    link/recordingdispatcher.cpp link/recordingdispatcher.h
    link/recordinglog.h
    link/recordingsink.h
    link/serialreader.cpp link/serialreader.h
)
