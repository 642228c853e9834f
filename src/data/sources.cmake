target_sources(varnel_data PRIVATE
    data/timetext.cpp data/timetext.h
    data/varnel3data.cpp data/varnel3data.h
    data/codetables.cpp
    data/fieldtext.cpp data/fieldtext.h
    data/linefields.h
    data/saturated.h
    data/lineparsers.cpp data/lineparsers.h
    data/varnel3parser.cpp
    data/varnel2parser.cpp
    data/tandorparser.cpp
    data/recordline.cpp data/recordline.h
    data/recordlist.cpp data/recordlist.h
    data/balanceintegrator.cpp data/balanceintegrator.h
)
