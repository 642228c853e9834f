target_sources(varnel_core PRIVATE
    overlay/courses/courseoutline.cpp overlay/courses/courseoutline.h
    overlay/courses/overlaycourse.cpp overlay/courses/overlaycourse.h
    overlay/courses/overlayvalues.cpp overlay/courses/overlayvalues.h
)
