# Drives PROGRAM through two sessions on a copy of DOCUMENT in FOLDER: the first ends without saving,
# the second recovers what that left, saves, and meets a plot that somebody else has changed.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER})
file(COPY_FILE ${DOCUMENT} ${FOLDER}/plot.json)

function(run_session commands expected)
  file(WRITE ${FOLDER}/commands "${commands}")
  execute_process(COMMAND ${PROGRAM} ${FOLDER}/plot.json INPUT_FILE ${FOLDER}/commands
                  OUTPUT_VARIABLE printed ERROR_VARIABLE complaints RESULT_VARIABLE status)
  if(NOT status EQUAL 0 OR NOT complaints STREQUAL "" OR NOT printed STREQUAL "${expected}")
    message(FATAL_ERROR "ended with ${status}, printed:\n${printed}${complaints}expected:\n${expected}")
  endif()
endfunction()

run_session("select GTR\ndrag 10 0 25\ncopy\npaste\npaste\nundo\ndelete\nfly\n"
"18 items, 1 selected, 0 to undo, saved
18 items, 1 selected, 1 to undo, not saved
18 items, 1 selected, 1 to undo, not saved
19 items, 1 selected, 2 to undo, not saved
20 items, 1 selected, 3 to undo, not saved
undone: Paste
19 items, 1 selected, 2 to undo, not saved
18 items, 0 selected, 3 to undo, not saved
what is \"fly\"?
18 items, 0 selected, 3 to undo, not saved
")
file(READ ${DOCUMENT} original)
file(READ ${FOLDER}/plot.json kept)
if(NOT kept STREQUAL original)
  message(FATAL_ERROR "the plot was written without being saved")
endif()

run_session("undo\nredo\nsave\nundo\nredo\n"
"recovered what was not saved; undo for the file as it is
undone: Recover
18 items, 0 selected, 0 to undo, saved
redone: Recover
18 items, 0 selected, 1 to undo, not saved
18 items, 0 selected, 1 to undo, saved
undone: Recover
18 items, 0 selected, 0 to undo, not saved
redone: Recover
18 items, 0 selected, 1 to undo, saved
")
file(READ ${FOLDER}/plot.json saved)
if(saved STREQUAL original)
  message(FATAL_ERROR "the plot was not saved")
endif()
