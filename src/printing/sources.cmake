# Which dialog offers a file is the system's own.
if(WIN32)
    set(printing_system printing/printrequest_win.cpp)
else()
    set(printing_system printing/printrequest_unix.cpp)
endif()
target_sources(varnel_gui PRIVATE
    printing/printjob.cpp printing/printjob.h
    printing/printrequest.cpp printing/printrequest.h
    printing/printstamp.cpp printing/printstamp.h
    ${printing_system}
)
