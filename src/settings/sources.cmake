target_sources(varnel_core PRIVATE
    settings/viewstate.cpp settings/viewstate.h
)
