target_sources(varnel_gui PRIVATE
    desk/closeguard.h
    desk/datatoolbar.cpp desk/datatoolbar.h
    desk/deskarea.cpp desk/deskarea.h
    desk/dialogsontop.cpp desk/dialogsontop.h
    desk/displaywindows.cpp desk/displaywindows.h
    desk/figures.cpp desk/figures.h
    desk/graphwindows.cpp desk/graphwindows.h
    desk/packsource.cpp desk/packsource.h
    desk/recordings.cpp desk/recordings.h
    desk/stalewatch.cpp desk/stalewatch.h
    desk/statusfacts.cpp desk/statusfacts.h
    desk/windowplace.cpp desk/windowplace.h
)
