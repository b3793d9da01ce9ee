# SQLite with Multiple Ciphers: the amalgamation comes in a package of the npm registry, by name
# and version, and is checked against its SHA-512 before anything of it is unpacked. Its compile
# options are ours.

set(NORVANE_SQLITE_PACKAGE better-sqlite3-multiple-ciphers)
set(NORVANE_SQLITE_VERSION 12.11.1)
set(NORVANE_SQLITE_SHA512
  a46ef6fb7564522a67998c782f042aa0e5cd1b6089d479660eb96faa0afbc501e0b04f9ccf9ac064489a2479d42931da19f1a27e0800fc2d12bfda99954adfa3)

# Shared by all build folders of this checkout.
set(NORVANE_THIRD_PARTY ${PROJECT_SOURCE_DIR}/build/third_party)
set(_archive ${NORVANE_THIRD_PARTY}/${NORVANE_SQLITE_PACKAGE}-${NORVANE_SQLITE_VERSION}.tgz)
set(_unpacked ${NORVANE_THIRD_PARTY}/sqlite-${NORVANE_SQLITE_VERSION})

if(NOT EXISTS ${_archive})
  file(MAKE_DIRECTORY ${NORVANE_THIRD_PARTY})
  find_program(NPM npm REQUIRED)
  execute_process(
    COMMAND ${NPM} pack --silent ${NORVANE_SQLITE_PACKAGE}@${NORVANE_SQLITE_VERSION}
    WORKING_DIRECTORY ${NORVANE_THIRD_PARTY}
    RESULT_VARIABLE _result OUTPUT_QUIET)
  if(NOT _result EQUAL 0 OR NOT EXISTS ${_archive})
    message(FATAL_ERROR "npm could not fetch ${NORVANE_SQLITE_PACKAGE} ${NORVANE_SQLITE_VERSION}")
  endif()
endif()
file(SHA512 ${_archive} _sum)
if(NOT _sum STREQUAL NORVANE_SQLITE_SHA512)
  file(REMOVE ${_archive})
  message(FATAL_ERROR "The archive of the database library is not the pinned one; it was removed.")
endif()
if(NOT EXISTS ${_unpacked}/package/deps/sqlite3/sqlite3.c)
  file(ARCHIVE_EXTRACT INPUT ${_archive} DESTINATION ${_unpacked}
    PATTERNS "*/deps/sqlite3/sqlite3.c" "*/deps/sqlite3/sqlite3.h")
endif()

add_library(norvane_sqlite3 STATIC ${_unpacked}/package/deps/sqlite3/sqlite3.c)
target_include_directories(norvane_sqlite3 SYSTEM PUBLIC ${_unpacked}/package/deps/sqlite3)
target_compile_definitions(norvane_sqlite3 PRIVATE
  SQLITE_DQS=0
  SQLITE_THREADSAFE=0
  SQLITE_DEFAULT_MEMSTATUS=0
  SQLITE_LIKE_DOESNT_MATCH_BLOBS
  SQLITE_MAX_EXPR_DEPTH=1000
  SQLITE_OMIT_DEPRECATED
  SQLITE_OMIT_LOAD_EXTENSION
  SQLITE_OMIT_SHARED_CACHE
  SQLITE_USE_URI=1
  SQLITE_SECURE_DELETE
  SQLITE_TEMP_STORE=2
  SQLITE_ENABLE_PREUPDATE_HOOK)
# Foreign code: its warnings are not ours, and it is not slowed down in the debug build.
target_compile_options(norvane_sqlite3 PRIVATE -w -O2)
