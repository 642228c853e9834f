target_sources(varnel_gui PRIVATE
    printing/printjob.cpp printing/printjob.h
    printing/printrequest.cpp printing/printrequest.h
)
