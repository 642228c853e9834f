target_sources(varnel_gui PRIVATE
)
