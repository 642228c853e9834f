target_sources(varnel_gui PRIVATE
    logbook/window/course/coursecanvas.cpp logbook/window/course/coursecanvas.h
    logbook/window/course/coursechart.cpp logbook/window/course/coursechart.h
    logbook/window/course/coursepanel.cpp logbook/window/course/coursepanel.h
    logbook/window/course/packcourse.cpp logbook/window/course/packcourse.h
)
