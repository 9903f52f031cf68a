# Read by CPack for each kind of package.
if(CPACK_GENERATOR STREQUAL "TGZ")
  # The archive's one folder is laid out by the component itself.
  set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
  list(GET CPACK_INSTALL_CMAKE_PROJECTS 0 build)
  set(CPACK_INSTALL_CMAKE_PROJECTS "${build};korvane;portable;/")
else()
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
endif()
