target_sources(varnel_gui PRIVATE
    printing/printjob.cpp printing/printjob.h
    printing/printrequest.cpp printing/printrequest.h
    printing/printstamp.cpp printing/printstamp.h
)
