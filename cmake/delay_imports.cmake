# Import libraries for the functions that are bound when they are first called, one for each file in delay_imports/:
#
# - The loader binds what a program imports before the program's first instruction, and looks for the libraries in the
#   program's own folder first, where somebody may have planted one of the same name. Only for the libraries that
#   Windows knows beforehand (KnownDLLs) it does not. All others are bound later, out of the system's folder alone.
# - Functions that came with a newer Windows (user32_newer): an older one gets as far as saying that it is too old.
#
# The folder stands before the linker's own: -lcrypt32 is this one for everybody, the cross-built libraries included.
# A function that is not in its .def file is an unresolved symbol.
find_program(BRASSLET_DLLTOOL x86_64-w64-mingw32-dlltool REQUIRED)
set(delay_imports_folder "${CMAKE_BINARY_DIR}/delay_imports")
file(MAKE_DIRECTORY "${delay_imports_folder}")

# Makes lib<name>.a of a .def file. The linker's input is named by its file name alone, the same in every folder.
function(brasslet_delay_import_library definition folder)
  cmake_path(GET definition STEM name)
  add_custom_command(OUTPUT "${folder}/lib${name}.a"
    COMMAND "${BRASSLET_DLLTOOL}" --input-def "${definition}" --output-delaylib "lib${name}.a"
    DEPENDS "${definition}" WORKING_DIRECTORY "${folder}" VERBATIM)
endfunction()

file(GLOB delay_import_definitions CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/delay_imports/*.def")
set(delay_import_libraries "")
set(delay_import_names "")
foreach(definition IN LISTS delay_import_definitions)
  brasslet_delay_import_library("${definition}" "${delay_imports_folder}")
  cmake_path(GET definition STEM name)
  list(APPEND delay_import_names "${name}")
  list(APPEND delay_import_libraries "${delay_imports_folder}/lib${name}.a")
endforeach()
add_custom_target(delay_import_libraries DEPENDS ${delay_import_libraries})

add_library(delay_imports INTERFACE)
add_dependencies(delay_imports delay_import_libraries)
target_link_directories(delay_imports INTERFACE "${delay_imports_folder}")
target_link_libraries(delay_imports INTERFACE user32_newer)
set_property(TARGET delay_imports PROPERTY INTERFACE_LINK_DEPENDS ${delay_import_libraries})
