# The one-way stack of the project's libraries, declared once. Each row: the library, its
# folder, the project libraries it may use (link and include), and the outside libraries it may
# link (Qt, SQLite, PostgreSQL, JSON). Anything else fails the configuration: a link to a library
# not in its row, or a source of its folder that includes a header of a folder not in its row.
# Hosts (apps/), tests and benchmarks sit above the stack and may use any of it.
#
#   library              folder              may use                                         outside
set(TABULON_LAYERS
  "tabulon_runtime       platform/runtime    -                                               -"
  "tabulon_ui            platform/ui         tabulon_runtime                                 -"
  "tabulon_db            platform/db         tabulon_runtime                                 -"
  "tabulon_host          platform/host       tabulon_runtime,tabulon_ui,tabulon_db           -"
  "tabulon_sqlite        platform/sqlite     tabulon_runtime,tabulon_db                      SQLite"
  "tabulon_postgres      platform/postgres   tabulon_runtime,tabulon_db                      PostgreSQL"
  "tabulon_qt            platform/qt         tabulon_runtime,tabulon_ui,tabulon_host         Qt"
  "tabulon_scrollbar     scrollbar           tabulon_runtime,tabulon_ui,tabulon_host         -"
  "tabulon_grid          grid                tabulon_runtime,tabulon_db                      -"
  "tabulon_presentation  presentation        tabulon_runtime,tabulon_ui,tabulon_db,tabulon_host,tabulon_scrollbar,tabulon_grid -"
  "tabulon_control       control             tabulon_runtime,tabulon_ui,tabulon_db,tabulon_host,tabulon_scrollbar,tabulon_grid,tabulon_presentation -"
  "tabulon_pages         pages               tabulon_runtime,tabulon_ui,tabulon_db,tabulon_host,tabulon_scrollbar,tabulon_grid,tabulon_presentation,tabulon_control -"
  "tabulon_persistence   persistence         tabulon_runtime,tabulon_ui,tabulon_host         JSON"
  "tabulon_widgets       widgets             tabulon_runtime,tabulon_ui,tabulon_db,tabulon_host,tabulon_qt,tabulon_sqlite,tabulon_postgres,tabulon_scrollbar,tabulon_grid,tabulon_control,tabulon_pages,tabulon_persistence Qt"
  "tabulon_test_support  tests/support       tabulon_runtime,tabulon_ui,tabulon_db,tabulon_host,tabulon_scrollbar,tabulon_grid,tabulon_presentation,tabulon_control -"
)

# Outside libraries by the names the table gives them: the link targets that stand for them.
set(TABULON_OUTSIDE_Qt "^Qt[0-9]*::")
set(TABULON_OUTSIDE_SQLite "^SQLite::|^sqlite3$")
set(TABULON_OUTSIDE_PostgreSQL "^PostgreSQL::|(^|[/:])pq$")
set(TABULON_OUTSIDE_JSON "^nlohmann_json::nlohmann_json$")

# Reads one row of the table into <prefix>_LIBRARY, _FOLDER, _USES (a list), _OUTSIDE (a list).
function(_tabulon_layer_row row prefix)
  string(REGEX REPLACE "[ \t]+" ";" fields "${row}")
  list(GET fields 0 library)
  list(GET fields 1 folder)
  list(GET fields 2 uses)
  list(GET fields 3 outside)
  foreach(name uses outside)
    if("${${name}}" STREQUAL "-")
      set(${name} "")
    else()
      string(REPLACE "," ";" ${name} "${${name}}")
    endif()
  endforeach()
  set(${prefix}_LIBRARY ${library} PARENT_SCOPE)
  set(${prefix}_FOLDER ${folder} PARENT_SCOPE)
  set(${prefix}_USES "${uses}" PARENT_SCOPE)
  set(${prefix}_OUTSIDE "${outside}" PARENT_SCOPE)
endfunction()

# The includes: every quoted include of a source under `root` that names a folder of the table
# must name the source's own folder or one its library may use. Failures are collected and stop
# the configuration together.
function(tabulon_check_layer_includes root)
  set(folders "")
  foreach(row IN LISTS TABULON_LAYERS)
    _tabulon_layer_row("${row}" r)
    list(APPEND folders ${r_FOLDER})
    set(library_of_${r_FOLDER} ${r_LIBRARY})
  endforeach()
  # Longer folders first, so that "platform/ui" is not taken for a prefix of another.
  list(SORT folders COMPARE STRING ORDER DESCENDING)
  set(failures "")
  foreach(row IN LISTS TABULON_LAYERS)
    _tabulon_layer_row("${row}" r)
    set(allowed ${r_FOLDER})
    foreach(use IN LISTS r_USES)
      foreach(folder IN LISTS folders)
        if(library_of_${folder} STREQUAL use)
          list(APPEND allowed ${folder})
        endif()
      endforeach()
    endforeach()
    file(GLOB_RECURSE sources ${root}/${r_FOLDER}/*.h ${root}/${r_FOLDER}/*.cpp)
    foreach(source IN LISTS sources)
      file(STRINGS ${source} lines REGEX "^[ \t]*#[ \t]*include[ \t]*\"")
      foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[ \t]*#[ \t]*include[ \t]*\"([^\"]*)\".*$" "\\1" header "${line}")
        foreach(folder IN LISTS folders)
          if(header MATCHES "^${folder}/")
            if(NOT folder IN_LIST allowed)
              file(RELATIVE_PATH where ${root} ${source})
              list(APPEND failures "${where} (${r_LIBRARY}) includes \"${header}\" of ${library_of_${folder}}")
            endif()
            break()
          endif()
        endforeach()
      endforeach()
    endforeach()
  endforeach()
  if(failures)
    string(REPLACE ";" "\n  " text "${failures}")
    message(FATAL_ERROR "Layering: a library reaches one it may not use (see cmake/Layers.cmake):\n  ${text}")
  endif()
endfunction()

# The links: every library of the table that exists links only what its row allows, directly.
function(tabulon_check_layer_links)
  set(known "")
  foreach(row IN LISTS TABULON_LAYERS)
    _tabulon_layer_row("${row}" r)
    list(APPEND known ${r_LIBRARY})
  endforeach()
  set(failures "")
  foreach(row IN LISTS TABULON_LAYERS)
    _tabulon_layer_row("${row}" r)
    if(NOT TARGET ${r_LIBRARY})
      continue()
    endif()
    get_target_property(links ${r_LIBRARY} LINK_LIBRARIES)
    get_target_property(interface ${r_LIBRARY} INTERFACE_LINK_LIBRARIES)
    foreach(link IN LISTS links interface)
      if(NOT link OR link MATCHES "-NOTFOUND$" OR link MATCHES "^\\$<LINK_ONLY:")
        continue()
      endif()
      if(link IN_LIST known)
        if(NOT link IN_LIST r_USES)
          list(APPEND failures "${r_LIBRARY} links ${link}")
        endif()
        continue()
      endif()
      set(matched FALSE)
      foreach(outside IN LISTS r_OUTSIDE)
        if(link MATCHES "${TABULON_OUTSIDE_${outside}}")
          set(matched TRUE)
        endif()
      endforeach()
      if(NOT matched)
        list(APPEND failures "${r_LIBRARY} links ${link}, which its row does not name")
      endif()
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES failures)
  if(failures)
    string(REPLACE ";" "\n  " text "${failures}")
    message(FATAL_ERROR "Layering: a library links one it may not use (see cmake/Layers.cmake):\n  ${text}")
  endif()
endfunction()

# Both checks over the project.
function(tabulon_check_layers)
  tabulon_check_layer_links()
  tabulon_check_layer_includes(${PROJECT_SOURCE_DIR})
  list(LENGTH TABULON_LAYERS count)
  message(STATUS "Layering: ${count} libraries link and include only what cmake/Layers.cmake allows")
endfunction()
