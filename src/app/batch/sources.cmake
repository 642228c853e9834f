target_sources(varnel_gui PRIVATE
    app/batch/batch.cpp app/batch/batch.h
    app/batch/commandline.cpp app/batch/commandline.h
    app/batch/logbookexport.cpp app/batch/logbookexport.h
)
