# How one file takes the place of another is the system's own.
if(WIN32)
    set(settings_system settings/replacefile_win.cpp)
else()
    set(settings_system settings/replacefile_unix.cpp)
endif()
target_sources(varnel_core PRIVATE
    settings/language.cpp settings/language.h
    settings/messagetime.h
    settings/replacefile.h
    settings/settingskeeper.cpp settings/settingskeeper.h
    settings/settingskeys.h
    settings/varnelsettings.cpp settings/varnelsettings.h
    settings/viewstate.cpp settings/viewstate.h
    settings/viewswitches.h
    ${settings_system}
)
