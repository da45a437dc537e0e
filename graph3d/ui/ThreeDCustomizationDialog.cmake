# The 3D customization dialog: widgets, so a library of its own beside the painting.
add_library(curvemill_graph3d_customization STATIC
    ${CMAKE_CURRENT_LIST_DIR}/ColourWheel.cpp
    ${CMAKE_CURRENT_LIST_DIR}/SchemeSample.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ThreeDColorsPage.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ThreeDCustomizationControls.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ThreeDCustomizationDialog.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ThreeDEffectsPage.cpp
    ${CMAKE_CURRENT_LIST_DIR}/ThreeDOtherPage.cpp)
set_target_properties(curvemill_graph3d_customization PROPERTIES AUTOMOC ON)
target_link_libraries(curvemill_graph3d_customization PUBLIC
    curvemill::graph3d curvemill::failure Qt6::Widgets)
target_compile_definitions(curvemill_graph3d_customization PUBLIC QT_NO_KEYWORDS)
curvemill_target_options(curvemill_graph3d_customization)
add_library(curvemill::graph3d_customization ALIAS curvemill_graph3d_customization)
