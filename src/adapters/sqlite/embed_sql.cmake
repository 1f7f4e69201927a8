# Writes OUTPUT: the SQL files of FOLDER/procedures and FOLDER/migrations, FOLDER/schema.sql and the lists of
# FOLDER/reference as texts of the program. A line "-- include: NAME" in a procedure stands for the text of
# FOLDER/procedures/NAME.
set(content "#include \"adapters/sqlite/embedded_sql.h\"\n\nnamespace opd::adapters::sqlite {\n\n")

# embed(array what pattern name): the files FOLDER/pattern as an array, named by this component of their paths.
function(embed array what pattern name_part)
  file(GLOB files "${FOLDER}/${pattern}")
  list(SORT files)
  list(LENGTH files count)
  string(APPEND content "const EmbeddedText ${array}[] = {\n")
  foreach(file ${files})
    get_filename_component(name "${file}" ${name_part})
    file(READ "${file}" text)
    while(text MATCHES "-- include: ([^\n]+)\n")
      set(line "${CMAKE_MATCH_0}")
      file(READ "${FOLDER}/procedures/${CMAKE_MATCH_1}" part)
      string(REPLACE "${line}" "${part}" text "${text}")
    endwhile()
    string(APPEND content "    {\"${name}\", R\"text(${text})text\"},\n")
  endforeach()
  string(APPEND content "};\nconst std::size_t ${what}Count = ${count};\n\n")
  set(content "${content}" PARENT_SCOPE)
endfunction()

embed(embeddedProcedures embeddedProcedure procedures/*.sql NAME)
embed(embeddedMigrations embeddedMigration migrations/*.sql NAME)
embed(embeddedReference embeddedReference reference/*.txt NAME_WE)
file(READ "${FOLDER}/schema.sql" schema)
string(APPEND content "const char* const embeddedSchema = R\"sql(${schema})sql\";\n\n} // namespace opd::adapters::sqlite\n")
file(WRITE "${OUTPUT}" "${content}")
