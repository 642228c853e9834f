target_sources(varnel_core PRIVATE
    documents/csvexport.cpp documents/csvexport.h
    documents/loadoutcome.cpp documents/loadoutcome.h
)
target_sources(varnel_gui PRIVATE
    documents/boundedselection.cpp documents/boundedselection.h
    documents/datafilesmodel.cpp documents/datafilesmodel.h
    documents/dialogplaces.cpp documents/dialogplaces.h
    documents/documents.cpp documents/documents.h
    documents/fileconversion.cpp documents/fileconversion.h
    documents/filequeue.cpp documents/filequeue.h
    documents/filewriter.cpp documents/filewriter.h
    documents/folderlisting.cpp documents/folderlisting.h
    documents/folderview.cpp documents/folderview.h
    documents/graphexports.cpp documents/graphexports.h
    documents/graphfile.cpp documents/graphfile.h
    documents/graphprinting.cpp documents/graphprinting.h
    documents/journalnotice.cpp documents/journalnotice.h
    documents/namecompleter.cpp documents/namecompleter.h
    documents/progressstrip.cpp documents/progressstrip.h
    documents/quietfilemodel.cpp documents/quietfilemodel.h
    documents/recordingsmodel.cpp documents/recordingsmodel.h
    documents/savedialog.cpp documents/savedialog.h
    documents/unsavedwindows.cpp documents/unsavedwindows.h
)
