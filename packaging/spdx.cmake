# The SPDX document: what is installed, and what others' work it contains or is linked with.
string(TIMESTAMP VEXNUMKR_CREATED "%Y-%m-%dT%H:%M:%SZ" UTC)
set(VEXNUMKR_SPDX_PACKAGES "")
set(VEXNUMKR_SPDX_RELATIONSHIPS "")

# vexnumkr_spdx_part(ID NAME VERSION LICENCE COPYRIGHT RELATIONSHIP): one of them, and how this project's
# files are related to it.
function(vexnumkr_spdx_part id name version licence copyright relationship)
  if(version STREQUAL "")
    message(FATAL_ERROR "The version of ${name} is not known.")
  endif()
  string(APPEND VEXNUMKR_SPDX_PACKAGES ",
    {
      \"SPDXID\": \"SPDXRef-${id}\",
      \"name\": \"${name}\",
      \"versionInfo\": \"${version}\",
      \"downloadLocation\": \"NOASSERTION\",
      \"filesAnalyzed\": false,
      \"licenseConcluded\": \"${licence}\",
      \"licenseDeclared\": \"${licence}\",
      \"copyrightText\": \"${copyright}\"
    }")
  string(APPEND VEXNUMKR_SPDX_RELATIONSHIPS ",
    {
      \"spdxElementId\": \"SPDXRef-vexnumkr\",
      \"relationshipType\": \"${relationship}\",
      \"relatedSpdxElement\": \"SPDXRef-${id}\"
    }")
  set(VEXNUMKR_SPDX_PACKAGES "${VEXNUMKR_SPDX_PACKAGES}" PARENT_SCOPE)
  set(VEXNUMKR_SPDX_RELATIONSHIPS "${VEXNUMKR_SPDX_RELATIONSHIPS}" PARENT_SCOPE)
endfunction()

vexnumkr_spdx_part(Qt "Qt base" "${Qt6_VERSION}" LGPL-3.0-only NOASSERTION DYNAMIC_LINK)
# What the program for the command line is made with; NOTICES.txt has the same names.
if(TARGET vexnumkr-program)
  find_package(CLI11 REQUIRED)
  find_package(nlohmann_json REQUIRED)
  find_file(XLSXWRITER_HEADER xlsxwriter.h REQUIRED)
  mark_as_advanced(XLSXWRITER_HEADER)
  file(STRINGS "${XLSXWRITER_HEADER}" xlsxwriter_version REGEX "#define LXW_VERSION ")
  string(REGEX REPLACE ".*\"(.*)\".*" "\\1" xlsxwriter_version "${xlsxwriter_version}")
  vexnumkr_spdx_part(CLI11 "CLI11" "${CLI11_VERSION}" BSD-3-Clause
    "2017-2021 University of Cincinnati, developed by Henry Schreiner" STATIC_LINK)
  vexnumkr_spdx_part(JSON "JSON for Modern C++" "${nlohmann_json_VERSION}" MIT
    "2013-2022 Niels Lohmann, 2009 Florian Loitsch, 2008-2009 Bjoern Hoehrmann" STATIC_LINK)
  vexnumkr_spdx_part(libxlsxwriter "libxlsxwriter" "${xlsxwriter_version}" BSD-2-Clause
    "2014-2021 John McNamara" DYNAMIC_LINK)
endif()
configure_file(vexnumkr.spdx.json.in vexnumkr.spdx.json @ONLY)
