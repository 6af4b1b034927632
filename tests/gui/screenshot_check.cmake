# Runs the desktop host under a virtual X server to write a screenshot of the
# demo table, then checks that a real picture was written.
# -DXVFB_RUN=... -DGUI=... -DOUT=png -DDEMO=demo folder
file(REMOVE ${OUT})
execute_process(
  COMMAND ${XVFB_RUN} -a ${GUI} --demo ${DEMO} --screenshot ${OUT}
  RESULT_VARIABLE result TIMEOUT 120)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "fytable-gui --screenshot failed: ${result}")
endif()
if(NOT EXISTS ${OUT})
  message(FATAL_ERROR "no screenshot at ${OUT}")
endif()
file(SIZE ${OUT} size)
# A blank 1200x720 window compresses to a few kilobytes; the grid and its
# CJK text take far more.
if(size LESS 30000)
  message(FATAL_ERROR "the screenshot ${OUT} holds too little (${size} bytes)")
endif()
file(READ ${OUT} magic LIMIT 8 HEX)
if(NOT magic STREQUAL "89504e470d0a1a0a")
  message(FATAL_ERROR "${OUT} is not a PNG file")
endif()
message(STATUS "screenshot: ${OUT} (${size} bytes)")
