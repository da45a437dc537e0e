#The Two D Graph dialog : widgets, so it is a library of its own beside the painting.
add_library(curvemill_graph2d_dialog STATIC ${CMAKE_CURRENT_LIST_DIR} /
            TwoDGraphDialog.cpp ${CMAKE_CURRENT_LIST_DIR} / TwoDGraphPointsSpin.cpp)
    set_target_properties(curvemill_graph2d_dialog PROPERTIES AUTOMOC ON)
        target_link_libraries(curvemill_graph2d_dialog PUBLIC curvemill::graph2d
                                  curvemill::engine_ui curvemill::worker_ui Qt6::Widgets)
            target_compile_definitions(curvemill_graph2d_dialog PUBLIC QT_NO_KEYWORDS)
                curvemill_target_options(curvemill_graph2d_dialog)
                    add_library(curvemill::graph2d_dialog ALIAS curvemill_graph2d_dialog)
