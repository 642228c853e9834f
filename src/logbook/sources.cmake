target_sources(varnel_core PRIVATE
    logbook/folderlook.cpp logbook/folderlook.h
    logbook/logbook.cpp logbook/logbook.h
    logbook/logbookbatch.h
    logbook/logbookcsv.cpp logbook/logbookcsv.h
    logbook/logbookdifference.cpp logbook/logbookdifference.h
    logbook/logbookeditor.cpp logbook/logbookeditor.h
    logbook/logbookfigures.cpp logbook/logbookfigures.h
    logbook/logbookfile.cpp logbook/logbookfile.h
    logbook/logbookfilter.h
    logbook/logbookkeeper.cpp logbook/logbookkeeper.h
    logbook/logbookqueue.cpp logbook/logbookqueue.h
    logbook/logbookreader.cpp logbook/logbookreader.h
    logbook/logbookrecording.h
    logbook/logbookschema.cpp logbook/logbookschema.h
    logbook/logbooktables.cpp logbook/logbooktables.h
)
