target_sources(varnel_gui PRIVATE
    documents/choosing/boundedselection.cpp documents/choosing/boundedselection.h
    documents/choosing/datafilesmodel.cpp documents/choosing/datafilesmodel.h
    documents/choosing/dialogplaces.cpp documents/choosing/dialogplaces.h
    documents/choosing/folderlisting.cpp documents/choosing/folderlisting.h
    documents/choosing/folderview.cpp documents/choosing/folderview.h
    documents/choosing/namecompleter.cpp documents/choosing/namecompleter.h
    documents/choosing/quietfilemodel.cpp documents/choosing/quietfilemodel.h
    documents/choosing/recordingsmodel.cpp documents/choosing/recordingsmodel.h
    documents/choosing/savedialog.cpp documents/choosing/savedialog.h
    documents/choosing/windowsnames.cpp documents/choosing/windowsnames.h
)
