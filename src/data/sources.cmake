target_sources(varnel_data PRIVATE
    data/timetext.cpp data/timetext.h
    data/varnel3data.h
    data/recordlist.h
)
