target_sources(varnel_core PRIVATE
)
