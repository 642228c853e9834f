target_sources(varnel_gui PRIVATE
    displays/cellsummary.cpp displays/cellsummary.h
    displays/clickedlabel.cpp displays/clickedlabel.h
    displays/datadisplay.cpp displays/datadisplay.h
    displays/datafigures.cpp displays/datafigures.h
    displays/displayscale.cpp displays/displayscale.h
    displays/figuretext.cpp displays/figuretext.h
    displays/fittedtext.cpp displays/fittedtext.h
    displays/refreshgate.cpp displays/refreshgate.h
)
