# Makes the manual with the program itself. Run by the build as
#   cmake -DSCRIVANT=<program> -DHOME=<share/scrivant> -DSOURCE=<docs/manual> -DWORK=<folder>
#         -DCHMCMD=<chmcmd or empty> -DEXAMPLES=<examples> -DSTAMP=<file> -P BuildManual.cmake
# The help project is written into WORK/Scrivant (kept for the tests, which
# check its links), the compiled help goes to HOME/Scrivant.chm and the
# browser help to HOME/Manual/.
foreach(variable SCRIVANT HOME SOURCE WORK EXAMPLES STAMP)
  if(NOT ${variable})
    message(FATAL_ERROR "BuildManual: -D${variable}=... is missing")
  endif()
endforeach()

set(project_dir ${WORK}/Scrivant)
set(data_dir ${WORK}/data)
# A fresh project each time: the program keeps pages that already exist.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${project_dir}/images ${data_dir})

function(run_scrivant)
  execute_process(COMMAND ${SCRIVANT} --home ${HOME} --data ${data_dir} --yes ${ARGN}
                  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "BuildManual: scrivant ${ARGN} failed (${result}):\n${output}\n${errors}")
  endif()
endfunction()

# The contents document names its pages by where they lie in the source tree.
set(MANUAL_PAGES ${SOURCE}/pages)
file(READ ${SOURCE}/Scrivant.xml contents)
string(CONFIGURE "${contents}" contents @ONLY)
file(WRITE ${WORK}/Scrivant.xml "${contents}")

if(CHMCMD)
  run_scrivant(settings --set HelpCompilerPath=${CHMCMD})
else()
  run_scrivant(settings --set CompileHTMLHelp=false)
endif()
# The form the manual shows is drawn by the program, as every form of a help is.
run_scrivant(screenshot ${EXAMPLES}/OrderDesk/OrderDesk.vbp frmCustomer --out ${project_dir}/images/OrderDesk_frmCustomer.png)
run_scrivant(generate --contents ${WORK}/Scrivant.xml --out ${project_dir} --name Scrivant --title "Scrivant Help")

if(CHMCMD)
  if(NOT EXISTS ${project_dir}/Scrivant.chm)
    message(FATAL_ERROR "BuildManual: ${CHMCMD} made no Scrivant.chm in ${project_dir}")
  endif()
  file(COPY_FILE ${project_dir}/Scrivant.chm ${HOME}/Scrivant.chm)
endif()

# The browser help: the pages, their scripts, style sheets and pictures; the
# project's own files (.svp, .hhp, contents and index sources) stay behind.
file(REMOVE_RECURSE ${HOME}/Manual)
file(COPY ${project_dir}/ DESTINATION ${HOME}/Manual FILES_MATCHING
     PATTERN "*.htm" PATTERN "*.html" PATTERN "*.js" PATTERN "*.css" PATTERN "*.png" PATTERN "*.svg")
file(TOUCH ${STAMP})
