target_sources(varnel_gui PRIVATE
    logbook/window/dialogs/dialogbuttons.cpp logbook/window/dialogs/dialogbuttons.h
    logbook/window/dialogs/foldersdialog.cpp logbook/window/dialogs/foldersdialog.h
    logbook/window/dialogs/notedialog.cpp logbook/window/dialogs/notedialog.h
    logbook/window/dialogs/packchoice.cpp logbook/window/dialogs/packchoice.h
    logbook/window/dialogs/packdialog.cpp logbook/window/dialogs/packdialog.h
)
