target_sources(varnel_core PRIVATE
    documents/csvexport.cpp documents/csvexport.h
    documents/loadoutcome.cpp documents/loadoutcome.h
)
target_sources(varnel_gui PRIVATE
    documents/documents.cpp documents/documents.h
    documents/fileconversion.cpp documents/fileconversion.h
    documents/filequeue.cpp documents/filequeue.h
    documents/filewriter.cpp documents/filewriter.h
    documents/graphexports.cpp documents/graphexports.h
    documents/graphfile.cpp documents/graphfile.h
    documents/graphprinting.cpp documents/graphprinting.h
    documents/journalnotice.cpp documents/journalnotice.h
    documents/progressstrip.cpp documents/progressstrip.h
    documents/unsavedwindows.cpp documents/unsavedwindows.h
)
