target_sources(varnel_gui PRIVATE
    dialogs/about.cpp dialogs/about.h
    dialogs/checkboxcomport.h
    dialogs/dialogpreferences.cpp dialogs/dialogpreferences.h
    dialogs/dialogremotecontrol.cpp dialogs/dialogremotecontrol.h dialogs/dialogremotecontrol.ui
)
set_target_properties(varnel_gui PROPERTIES AUTOUIC ON)
