if(NOT EXISTS "${TO}")
    file(COPY_FILE "${FROM}" "${TO}.new")
    file(RENAME "${TO}.new" "${TO}")
endif()
