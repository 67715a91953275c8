foreach(folder babel cache/reports cache/sav Temp data/sets data/web MyBatch samples)
    file(MAKE_DIRECTORY "${INSTALL}/${folder}")
endforeach()

# The settings of the first start. Once they are there they belong to the user.
set(settings "${INSTALL}/cache/Tagwright.ini")
if(NOT EXISTS "${settings}")
    file(COPY_FILE "${FIRST_RUN}" "${settings}.new")
    file(RENAME "${settings}.new" "${settings}")
endif()
