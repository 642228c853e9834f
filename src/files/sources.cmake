target_sources(varnel_core PRIVATE
    files/filestamp.h
    files/linesource.cpp files/linesource.h
    files/linetrimming.h
    files/filekind.cpp files/filekind.h
    files/backgroundfile.cpp files/backgroundfile.h
    files/columnheader.cpp files/columnheader.h
    files/columnconverter.cpp files/columnconverter.h
    files/chargercolumns.cpp files/chargercolumns.h
    files/balancercolumns.cpp files/balancercolumns.h
    files/datafileloader.cpp files/datafileloader.h
    files/datafilepieces.cpp files/datafilepieces.h
    files/recordinglength.cpp files/recordinglength.h
    files/recordlabel.cpp files/recordlabel.h
    files/csvrow.h
    files/filepieces.h
    files/wholefile.cpp files/wholefile.h
)
target_sources(varnel_gui PRIVATE
    files/varelstyleditemdelegate.cpp files/varelstyleditemdelegate.h
)
