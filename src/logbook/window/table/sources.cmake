target_sources(varnel_gui PRIVATE
    logbook/window/table/columnsmenu.cpp logbook/window/table/columnsmenu.h
    logbook/window/table/curvepicture.cpp logbook/window/table/curvepicture.h
    logbook/window/table/recordingcolumns.cpp logbook/window/table/recordingcolumns.h
    logbook/window/table/recordingtable.cpp logbook/window/table/recordingtable.h
    logbook/window/table/recordingview.cpp logbook/window/table/recordingview.h
    logbook/window/table/tablepages.cpp logbook/window/table/tablepages.h
)
