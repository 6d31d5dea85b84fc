# Installs the build into a fresh staging prefix and checks that everything
# the device needs lands where the panel and the service expect it.
# cmake -DBUILD_DIR=... -DSTAGE=... -P check_install.cmake
file(REMOVE_RECURSE "${STAGE}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${STAGE}"
                RESULT_VARIABLE result OUTPUT_QUIET)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "cmake --install failed: ${result}")
endif()

set(expected
  bin/panel
  bin/panel-sim
  config/language/language-vantor-ui.json
  share/vantor-panel/systemd/vantor-panel.service)
foreach(path IN LISTS expected)
  if(NOT EXISTS "${STAGE}/${path}")
    message(FATAL_ERROR "not installed: ${path}")
  endif()
endforeach()
foreach(program bin/panel bin/panel-sim)
  execute_process(COMMAND test -x "${STAGE}/${program}" RESULT_VARIABLE not_executable)
  if(not_executable)
    message(FATAL_ERROR "not executable: ${program}")
  endif()
endforeach()

# The installed language file must be the one the panel can read.
file(READ "${STAGE}/config/language/language-vantor-ui.json" texts)
foreach(language Chinese English Portuguese French Japanese)
  string(JSON texts_of ERROR_VARIABLE json_error TYPE "${texts}" ${language})
  if(json_error OR NOT texts_of STREQUAL "OBJECT")
    message(FATAL_ERROR "installed language file has no ${language} texts: ${json_error}")
  endif()
endforeach()

# The unit starts the installed panel.
file(STRINGS "${STAGE}/share/vantor-panel/systemd/vantor-panel.service" exec_line REGEX "^ExecStart=")
if(NOT exec_line MATCHES "/bin/panel$")
  message(FATAL_ERROR "the unit doesn't start the panel: ${exec_line}")
endif()
file(REMOVE_RECURSE "${STAGE}")
