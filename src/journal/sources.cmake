target_sources(varnel_core PRIVATE
    journal/journalfolder.cpp journal/journalfolder.h
    journal/journalkeeper.cpp journal/journalkeeper.h
    journal/journalnotices.h
    journal/journalsink.h
    journal/journalwriter.cpp journal/journalwriter.h
    journal/recordingjournal.cpp journal/recordingjournal.h
    journal/recordinglength.cpp journal/recordinglength.h
)
