# The targets vstring::vstring, vstring::vstring_static and, where it is installed,
# vstring::velmor_runtime.
include(${CMAKE_CURRENT_LIST_DIR}/vstring-targets.cmake)

# velmor_runtime is written in C++ and names the libraries that it needs, so a project without C++
# may link it too.
get_property(vstring_languages GLOBAL PROPERTY ENABLED_LANGUAGES)
if(TARGET vstring::velmor_runtime AND NOT "CXX" IN_LIST vstring_languages)
  get_target_property(vstring_configurations vstring::velmor_runtime IMPORTED_CONFIGURATIONS)
  foreach(configuration ${vstring_configurations})
    set_target_properties(vstring::velmor_runtime PROPERTIES
      IMPORTED_LINK_INTERFACE_LANGUAGES_${configuration} C)
  endforeach()
endif()
unset(vstring_languages)
unset(vstring_configurations)
