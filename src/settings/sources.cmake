target_sources(varnel_core PRIVATE
    settings/settingskeeper.cpp settings/settingskeeper.h
    settings/settingskeys.h
    settings/varnelsettings.cpp settings/varnelsettings.h
    settings/viewstate.cpp settings/viewstate.h
    settings/viewswitches.h
)
