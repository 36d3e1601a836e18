# Installs a build into a folder, and moves it: what was installed must not depend on its place.
# Takes BUILD and WORK.
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/antes
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${WORK}/antes ${WORK}/instalado)
if(EXISTS ${WORK}/instalado/bin/kvraedi)
  execute_process(COMMAND ${WORK}/instalado/bin/kvraedi --version COMMAND_ERROR_IS_FATAL ANY)
endif()
