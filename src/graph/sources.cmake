# The store knows no widget and belongs to the core library.
target_sources(varnel_core PRIVATE
)
target_sources(varnel_gui PRIVATE
    graph/graphhost.h
    graph/scaledrawtime.cpp graph/scaledrawtime.h
)
