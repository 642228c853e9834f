target_sources(varnel_core PRIVATE
    journal/journal.cpp journal/journal.h
    journal/journalfolder.cpp journal/journalfolder.h
    journal/journalkeeper.cpp journal/journalkeeper.h
    journal/journallines.cpp journal/journallines.h
)
