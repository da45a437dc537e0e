# The 2D customization dialog: widgets, so a library of its own beside the painting.
add_library(curvemill_graph2d_customization STATIC
    ${CMAKE_CURRENT_LIST_DIR}/TwoDCustomizationDialog.cpp)
set_target_properties(curvemill_graph2d_customization PROPERTIES AUTOMOC ON)
target_link_libraries(curvemill_graph2d_customization PUBLIC
    curvemill::graph2d curvemill::failure Qt6::Widgets)
target_compile_definitions(curvemill_graph2d_customization PUBLIC QT_NO_KEYWORDS)
curvemill_target_options(curvemill_graph2d_customization)
add_library(curvemill::graph2d_customization ALIAS curvemill_graph2d_customization)
