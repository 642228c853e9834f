target_sources(varnel_gui PRIVATE
    dialogs/checkboxcomport.h
    dialogs/dialogpreferences.cpp dialogs/dialogpreferences.h
)
