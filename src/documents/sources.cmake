target_sources(varnel_core PRIVATE
    documents/csvexport.cpp documents/csvexport.h
)
