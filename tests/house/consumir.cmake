# Builds the project of consumidor/ against an installed package and runs its programs. Takes
# SOURCE, WORK (where instalar.cmake put the package), NAME, COMPONENTS (with blanks between them)
# and SETTINGS, further arguments for the project's configuration.
set(folder ${WORK}/${NAME})
file(REMOVE_RECURSE ${folder})
string(REPLACE " " ";" COMPONENTS "${COMPONENTS}")

execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${folder} ${SETTINGS}
  -DCMAKE_PREFIX_PATH=${WORK}/instalado "-DCOMPONENTS=${COMPONENTS}"
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${folder} COMMAND_ERROR_IS_FATAL ANY)
foreach(program consumidor consumidor_qt)
  if(EXISTS ${folder}/${program})
    execute_process(COMMAND ${folder}/${program} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()
