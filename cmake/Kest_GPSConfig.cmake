include(${CMAKE_CURRENT_LIST_DIR}/Kest_GPSTargets.cmake)
