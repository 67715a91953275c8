foreach(folder babel cache/reports cache/sav Temp data/sets data/web MyBatch samples)
    file(MAKE_DIRECTORY "${INSTALL}/${folder}")
endforeach()

# The settings and columns of the first start. Once they are there they belong to the user.
function(copy_when_absent source target)
    if(NOT EXISTS "${target}")
        file(COPY_FILE "${source}" "${target}.new")
        file(RENAME "${target}.new" "${target}")
    endif()
endfunction()
copy_when_absent("${FIRST_RUN}/first-run.ini" "${INSTALL}/cache/Tagwright.ini")
copy_when_absent("${FIRST_RUN}/first-run-ColumnsHeader.ini" "${INSTALL}/cache/ColumnsHeader.ini")
