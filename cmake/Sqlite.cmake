# One SQLite for every build, from its amalgamation: a folder that the user names in SQLITE_AMALGAMATION, else the
# pinned package that tools/fetch_sqlite.sh brings.
set(SQLITE_AMALGAMATION "$ENV{SQLITE_AMALGAMATION}" CACHE PATH "Folder with sqlite3.c and sqlite3.h")
if(NOT SQLITE_AMALGAMATION)
  set(SQLITE_AMALGAMATION "${PROJECT_SOURCE_DIR}/build/third_party/sqlite")
  if(NOT EXISTS "${SQLITE_AMALGAMATION}/sqlite3.c")
    execute_process(COMMAND "${PROJECT_SOURCE_DIR}/tools/fetch_sqlite.sh" "${SQLITE_AMALGAMATION}"
                            COMMAND_ERROR_IS_FATAL ANY)
  endif()
endif()

add_library(zqvote_sqlite STATIC "${SQLITE_AMALGAMATION}/sqlite3.c")
target_include_directories(zqvote_sqlite SYSTEM PUBLIC "${SQLITE_AMALGAMATION}")
# Sanitizers and coverage are for our own code: instrumenting this one file takes longer than building all the rest.
if(NOT ZQVOTE_SANITIZE AND NOT ZQVOTE_FUZZ)
  target_link_libraries(zqvote_sqlite PRIVATE zqvote_options)
endif()
# Vote files come from strangers: nothing in them may reach beyond the file, or compute anything. Without the
# write-ahead log a file can't bring the temporary database into a mode in which its content lies in a second file.
target_compile_definitions(
  zqvote_sqlite
  PRIVATE SQLITE_OMIT_LOAD_EXTENSION
          SQLITE_TRUSTED_SCHEMA=0
          SQLITE_DQS=0
          SQLITE_THREADSAFE=2
          SQLITE_DEFAULT_MEMSTATUS=0
          SQLITE_OMIT_DEPRECATED
          SQLITE_OMIT_SHARED_CACHE
          SQLITE_OMIT_GENERATED_COLUMNS
          SQLITE_OMIT_WAL
          SQLITE_MAX_ATTACHED=0
          SQLITE_LIKE_DOESNT_MATCH_BLOBS)
target_compile_options(zqvote_sqlite PRIVATE -w)
set_target_properties(zqvote_sqlite PROPERTIES C_EXTENSIONS ON)
