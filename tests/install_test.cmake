# What an installation lays out: the levels and sounds as they were made, not what a player of the build folder
# has put beside them.
set(prefix ${BUILD}/rooms/tests/installed)
set(of_a_player ${BUILD}/levels/of-a-player.sav)
file(REMOVE_RECURSE ${prefix})
file(WRITE ${of_a_player} "600,3000,250,480,5\n")
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix} OUTPUT_QUIET
                COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE ${of_a_player})

set(share ${prefix}/share/games/korvane)
file(GLOB_RECURSE laid RELATIVE ${share} ${share}/*)
file(GLOB made RELATIVE ${SOURCE}/assets ${SOURCE}/assets/levels/*.sav)
foreach(sound lad plat magnetico end bloc bloc2 hard ball mais menos cola mais1)
  list(APPEND made sons/${sound}.wav)
endforeach()
list(SORT laid)
list(SORT made)
if(NOT laid STREQUAL made)
  message(FATAL_ERROR "laid out: ${laid}\nbut made: ${made}")
endif()
