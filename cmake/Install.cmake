# What is delivered. `cmake --install BUILD` puts the headers and, on Linux, the portable core under the prefix.
install(
  DIRECTORY JW_Base/Include records
  DESTINATION include
  FILES_MATCHING
  PATTERN "*.h")
if(NOT WIN32)
  install(TARGETS zqvote_core zqvote_sqlite ARCHIVE DESTINATION lib)
endif()
