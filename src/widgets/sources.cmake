target_sources(varnel_gui PRIVATE
    widgets/displayscale.cpp widgets/displayscale.h
    widgets/fittedtext.cpp widgets/fittedtext.h
    widgets/inputgate.cpp widgets/inputgate.h
    widgets/keybinding.h
    widgets/mnemonics.cpp widgets/mnemonics.h
    widgets/plaintooltip.h
    widgets/refreshgate.cpp widgets/refreshgate.h
    widgets/sharppixmap.h
    widgets/spoken.cpp widgets/spoken.h
    widgets/straightstrokes.cpp widgets/straightstrokes.h
    widgets/warningbox.cpp widgets/warningbox.h
)
