target_sources(varnel_gui PRIVATE
    app/actionset.cpp app/actionset.h
    app/batch.cpp app/batch.h
    app/closeguard.h
    app/commandline.cpp app/commandline.h
    app/datafilesmodel.cpp app/datafilesmodel.h
    app/datatoolbar.cpp app/datatoolbar.h
    app/deskarea.cpp app/deskarea.h
    app/dialogsontop.cpp app/dialogsontop.h
    app/displaywindows.cpp app/displaywindows.h
    app/documents.cpp app/documents.h
    app/figures.cpp app/figures.h
    app/filedrops.cpp app/filedrops.h
    app/filequeue.cpp app/filequeue.h
    app/filewriter.cpp app/filewriter.h
    app/graphexports.cpp app/graphexports.h
    app/graphfile.cpp app/graphfile.h
    app/graphprinting.cpp app/graphprinting.h
    app/graphwindows.cpp app/graphwindows.h
    app/inputgate.cpp app/inputgate.h
    app/instanceplace.h
    app/journalnotice.cpp app/journalnotice.h
    app/listenedports.cpp app/listenedports.h
    app/logoutput.h
    app/mainwindow.cpp app/mainwindow.h
    app/packsource.cpp app/packsource.h
    app/portquestions.cpp app/portquestions.h
    app/portretries.cpp app/portretries.h
    app/progressstrip.cpp app/progressstrip.h
    app/recordings.cpp app/recordings.h
    app/recordingsmodel.cpp app/recordingsmodel.h
    app/savedialog.cpp app/savedialog.h
    app/sessionend.cpp app/sessionend.h
    app/settingsnotice.cpp app/settingsnotice.h
    app/shellmenus.cpp app/shellmenus.h
    app/shellplace.cpp app/shellplace.h
    app/shellreaderhost.cpp app/shellreaderhost.h
    app/singleinstance.cpp app/singleinstance.h
    app/stalewatch.cpp app/stalewatch.h
    app/statusfacts.cpp app/statusfacts.h
    app/stylesheet.cpp app/stylesheet.h
    app/toolscommands.cpp app/toolscommands.h
    app/unsavedwindows.cpp app/unsavedwindows.h
    app/viewswitchboard.cpp app/viewswitchboard.h
    app/warningbox.cpp app/warningbox.h
)

# What the devices' processes and the user's commands bring about
if(WIN32)
    set(app_system app/instanceplace_win.cpp app/logoutput_win.cpp app/sleepblock_win.cpp
        app/soundserver_win.cpp)
else()
    set(app_system app/instanceplace_unix.cpp app/logoutput_unix.cpp app/sleepblock_unix.cpp
        app/sleepkeepers_unix.cpp app/sleepkeepers.h app/soundserver_unix.cpp)
    target_link_libraries(varnel_gui PRIVATE Qt5::DBus)
endif()
target_sources(varnel_gui PRIVATE
    app/devicecommands.cpp app/devicecommands.h
    app/devicetargets.cpp app/devicetargets.h
    app/endedprocess.cpp app/endedprocess.h
    app/endnotice.cpp app/endnotice.h
    app/remotecontrols.cpp app/remotecontrols.h
    app/shelltargets.cpp app/shelltargets.h
    app/sleepblock.h
    app/sleepinhibitor.cpp app/sleepinhibitor.h
    app/soundplayer.cpp app/soundplayer.h
    app/soundserver.h
    app/unseenends.cpp app/unseenends.h
    ${app_system}
)
