target_sources(varnel_data PRIVATE
    protocol/fieldtext.cpp protocol/fieldtext.h
    protocol/fixedlayout.cpp protocol/fixedlayout.h
    protocol/linefields.h
    protocol/lineconversions.cpp protocol/lineconversions.h
    protocol/lineparsers.cpp protocol/lineparsers.h
    protocol/recordline.cpp protocol/recordline.h
    protocol/tandorparser.cpp
    protocol/varnel2parser.cpp
    protocol/varnel3parser.cpp
)
