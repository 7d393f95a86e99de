# Lays the program folder as shipped beside the programs. A file that is there already is a builder's
# own by now and stays.
file(GLOB_RECURSE files RELATIVE ${FROM} ${FROM}/*)
foreach(file IN LISTS files)
  if(NOT EXISTS ${TO}/${file})
    get_filename_component(folder ${TO}/${file} DIRECTORY)
    file(COPY ${FROM}/${file} DESTINATION ${folder})
  endif()
endforeach()
