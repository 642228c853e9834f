target_sources(varnel_gui PRIVATE
    logbook/window/filterline.cpp logbook/window/filterline.h
    logbook/window/logbookactions.cpp logbook/window/logbookactions.h
    logbook/window/logbookcommands.cpp logbook/window/logbookcommands.h
    logbook/window/logbookstatus.cpp logbook/window/logbookstatus.h
    logbook/window/logbookwindow.cpp logbook/window/logbookwindow.h
    logbook/window/packlist.cpp logbook/window/packlist.h
)
