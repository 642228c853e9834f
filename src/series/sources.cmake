target_sources(varnel_core PRIVATE
    series/cellselection.h
    series/derivedpoints.cpp series/derivedpoints.h
    series/endmark.cpp series/endmark.h
    series/extremes.cpp series/extremes.h
    series/extremespyramid.cpp series/extremespyramid.h
    series/interval.cpp series/interval.h
    series/keptpoints.cpp series/keptpoints.h
    series/plotseries.cpp series/plotseries.h
    series/resistancefold.cpp series/resistancefold.h
    series/seriesfigures.cpp series/seriesfigures.h
    series/serieskinds.h
    series/seriesstore.cpp series/seriesstore.h
)
