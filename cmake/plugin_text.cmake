# The WordPress plugin is shipped as one PHP file. Its sources are several, one idea each: the head, which opens the file
# and carries the values of the build, and parts that begin with "<?php" and a blank line of their own.
set(plugin_parts
  header_bridge discovery routes login header_login publishing lookup script caches updates
  site_health wallet_check notice obstacles record change lock
  payments payment_size destination reference delivery transaction claim broadcast broadcaster
  page page_names page_check page_payments page_form host values)

set(plugin_sources "${CMAKE_SOURCE_DIR}/src/plugin/php/head.php.in")
foreach(part IN LISTS plugin_parts)
  list(APPEND plugin_sources "${CMAKE_SOURCE_DIR}/src/plugin/php/${part}.php")
endforeach()

set(plugin_text "")
foreach(source IN LISTS plugin_sources)
  file(READ "${source}" text)
  if(source MATCHES "\\.php$")
    string(FIND "${text}" "<?php\n\n" opening)
    if(NOT opening EQUAL 0)
      message(FATAL_ERROR "${source} does not begin with \"<?php\" and a blank line.")
    endif()
    string(SUBSTRING "${text}" 6 -1 text)
  endif()
  string(APPEND plugin_text "${text}")
endforeach()

# A part that the list has forgotten would be missing in silence.
file(GLOB plugin_files CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/plugin/php/*")
list(REMOVE_ITEM plugin_files ${plugin_sources})
if(plugin_files)
  message(FATAL_ERROR "No part of the plugin: ${plugin_files}")
endif()

file(CONFIGURE OUTPUT "${BRASSLET_GENERATED_DIR}/brasslet.php" CONTENT "${plugin_text}" @ONLY NEWLINE_STYLE UNIX)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${plugin_sources})
