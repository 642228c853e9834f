target_sources(varnel_gui PRIVATE
    desk/closeguard.h
    desk/datatoolbar.cpp desk/datatoolbar.h
    desk/deskarea.cpp desk/deskarea.h
    desk/dialogsontop.cpp desk/dialogsontop.h
    desk/displaywindows.cpp desk/displaywindows.h
    desk/graphwindows.cpp desk/graphwindows.h
    desk/livewindows.cpp desk/livewindows.h
    desk/packsource.cpp desk/packsource.h
    desk/shownrecord.cpp desk/shownrecord.h
    desk/stalewatch.cpp desk/stalewatch.h
    desk/statusfacts.cpp desk/statusfacts.h
    desk/titlebarstyle.cpp desk/titlebarstyle.h
    desk/windowfiles.cpp desk/windowfiles.h
    desk/windowplace.cpp desk/windowplace.h
)
