# Fails when the library exports a symbol that no public header declares, or leaves one out that
# every host needs.

cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${NM} -D -C --defined-only ${LIBRARY}
  OUTPUT_VARIABLE output RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "${NM} cannot read ${LIBRARY}")
endif()

set(declared "")
file(READ ${C_HEADER} c_header)
string(REGEX MATCHALL "KELP_BDF_API [^(;]+[ *]kelp_bdf_[a-z0-9_]+\\(" c_functions "${c_header}")
list(TRANSFORM c_functions REPLACE "^.*[ *](kelp_bdf_[a-z0-9_]+)\\($" "\\1")
file(GLOB_RECURSE headers ${HEADERS}/*.hpp)
foreach(header IN LISTS headers)
  file(READ ${header} text)
  string(APPEND declared "${text}")
endforeach()

# The types that a header marks for export.
string(REGEX MATCHALL "(class|struct) KELP_BDF_INP_EXPORT [A-Za-z]+" types "${declared}")
list(TRANSFORM types REPLACE ".* " "")
list(JOIN types "|" types)
set(problems "")
string(REPLACE ";" "," output "${output}")
string(REGEX REPLACE "\n" ";" lines "${output}")
foreach(line IN LISTS lines)
  if(NOT line MATCHES "^[0-9a-f]+ +[A-Za-z] (.+)$")
    continue()
  endif()
  set(symbol "${CMAKE_MATCH_1}")
  if(symbol IN_LIST c_functions)
    list(REMOVE_ITEM c_functions ${symbol})
    continue()
  endif()
  string(REGEX REPLACE "^(vtable|typeinfo|typeinfo name) for " "" name "${symbol}")
  if(name MATCHES "^kelp::input::bdf::(${types})::(operator=|[A-Za-z_~0-9]+)(\\[abi:[a-z0-9]+\\])?\\(")
    continue()
  endif()
  if(name MATCHES "^kelp::input::bdf::([a-z_0-9]+)(\\[abi:[a-z0-9]+\\])?\\(")
    set(function ${CMAKE_MATCH_1})
    if(declared MATCHES "KELP_BDF_INP_EXPORT[^;{}]* ${function}\\(")
      continue()
    endif()
  endif()
  string(APPEND problems "\n  exported, but no part of the interface: ${symbol}")
endforeach()

foreach(function IN LISTS c_functions)
  string(APPEND problems "\n  not exported: ${function}")
endforeach()
foreach(needed IN ITEMS
    BDFData::find_module BDFData::find_modules BDFData::module_count BDFData::find_easy_token
    Module::find_entry Module::find_entries ModuleEntry::find_child ModuleEntry::find_children
    BDFData::~BDFData Module::~Module ModuleEntry::~ModuleEntry EasyToken::~EasyToken
    InputSchema::InputSchema InputSchema::from_yaml InputSchema::from_file InputSchema::empty
    InputSchema::metadata InputSchema::validate InputSchema::canonical_method
    InputSchema::is_known_method InputSchema::canonical_functional InputSchema::is_known_functional
    InputSchema::canonical_basis InputSchema::is_known_basis InputSchema::canonical_easy_key
    InputSchema::canonical_easy_token InputSchema::easy_token_category
    InputSchema::is_known_easy_token InputSchema::canonical_module InputSchema::is_known_module
    InputSchema::module_repeatable InputSchema::known_modules InputSchema::canonical_entry
    InputSchema::is_known_entry InputSchema::entry_value_kind InputSchema::entry_terminator
    InputSchema::entry_info InputSchema::canonical_nested_entry InputSchema::is_known_nested_entry
    InputSchema::nested_entry_value_kind InputSchema::nested_entry_info
    default_schema resolve_schema_path
    BDFParser::parse_string BDFParser::parse_file BDFParser::looks_like_bdf_input
    BDFEditor::BDFEditor BDFEditor::data BDFEditor::set_data BDFEditor::validate BDFEditor::module
    BDFEditor::render BDFEditor::write_file BDFEditor::set_charge_and_multiplicity)
  if(NOT output MATCHES " kelp::input::bdf::${needed}(\\[abi:[a-z0-9]+\\])?\\(")
    string(APPEND problems "\n  not exported: ${needed}")
  endif()
endforeach()

if(problems)
  message(FATAL_ERROR "${LIBRARY}:${problems}")
endif()
