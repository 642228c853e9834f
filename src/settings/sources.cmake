target_sources(varnel_core PRIVATE
    settings/language.cpp settings/language.h
    settings/messagetime.h
    settings/settingskeeper.cpp settings/settingskeeper.h
    settings/settingskeys.h
    settings/varnelsettings.cpp settings/varnelsettings.h
    settings/viewstate.cpp settings/viewstate.h
    settings/viewswitches.h
)
