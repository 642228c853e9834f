# How bytes get onto the disk is the system's own; the rest is common.
if(WIN32)
    set(disk_system files/disk/filesync_win.cpp files/disk/lockedfile_win.cpp
        files/disk/nativename.h files/disk/nativename_win.cpp)
else()
    set(disk_system files/disk/filesync_unix.cpp files/disk/lockedfile_unix.cpp)
endif()
target_sources(varnel_core PRIVATE
    files/disk/diskjobs.cpp files/disk/diskjobs.h
    files/disk/disksyncer.cpp files/disk/disksyncer.h
    files/disk/filesync.h
    files/disk/lockedfile.h
    ${disk_system}
)
