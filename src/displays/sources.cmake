target_sources(varnel_gui PRIVATE
    displays/capacitychart.cpp displays/capacitychart.h
    displays/capacitydisplay.cpp displays/capacitydisplay.h
    displays/chartpaint.cpp displays/chartpaint.h
    displays/clickedlabel.cpp displays/clickedlabel.h
    displays/datadisplay.cpp displays/datadisplay.h
    displays/datafigures.cpp displays/datafigures.h
    displays/packvoltages.cpp displays/packvoltages.h
    displays/powerbars.cpp displays/powerbars.h
    displays/powerchart.cpp displays/powerchart.h
    displays/powerdisplay.cpp displays/powerdisplay.h
    displays/resistancesummary.cpp displays/resistancesummary.h
    displays/voltageaxis.cpp displays/voltageaxis.h
    displays/voltagecanvas.cpp displays/voltagecanvas.h
    displays/voltagechart.cpp displays/voltagechart.h
    displays/voltagecomparison.cpp displays/voltagecomparison.h
    displays/voltagesource.h
)
