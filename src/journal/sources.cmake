target_sources(varnel_core PRIVATE
    journal/journalfolder.cpp journal/journalfolder.h
    journal/journalkeeper.cpp journal/journalkeeper.h
    journal/journalnotices.h
    journal/journalsink.h
    journal/journal.cpp journal/journal.h
    journal/journallines.cpp journal/journallines.h
    journal/recordinglength.cpp journal/recordinglength.h
)
