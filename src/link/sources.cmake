target_sources(varnel_core PRIVATE
    link/devicelink.h
    link/readerhost.h
    link/recordinglog.h
    link/recordingsink.h
)
