target_sources(varnel_gui PRIVATE
    app/tools/logbookhost.cpp app/tools/logbookhost.h
    app/tools/logbookparts.cpp app/tools/logbookparts.h
    app/tools/overlaycommands.cpp app/tools/overlaycommands.h
    app/tools/overlaylabel.cpp app/tools/overlaylabel.h
)
