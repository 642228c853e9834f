# How bytes get onto the disk is the system's own; the rest is common.
if(WIN32)
    set(files_system files/filesync_win.cpp files/lockedfile_win.cpp)
else()
    set(files_system files/filesync_unix.cpp files/lockedfile_unix.cpp)
endif()
target_sources(varnel_core PRIVATE
    files/filesync.h
    ${files_system}
    files/linesource.cpp files/linesource.h
    files/linetrimming.h
    files/filekind.cpp files/filekind.h
    files/backgroundfile.cpp files/backgroundfile.h
    files/columnheader.cpp files/columnheader.h
    files/columnconverter.cpp files/columnconverter.h
    files/chargercolumns.cpp files/chargercolumns.h
    files/balancercolumns.cpp files/balancercolumns.h
    files/datafileloader.cpp files/datafileloader.h
    files/recordlines.cpp files/recordlines.h
    files/recordlabel.cpp files/recordlabel.h
    files/lockedfile.h
    files/diskjobs.cpp files/diskjobs.h
    files/disksyncer.cpp files/disksyncer.h
    files/filepieces.h
    files/wholefile.cpp files/wholefile.h
)
target_sources(varnel_gui PRIVATE
    files/varelstyleditemdelegate.cpp files/varelstyleditemdelegate.h
)
