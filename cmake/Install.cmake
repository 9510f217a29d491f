# What a device build takes: the library, that of the layers if there are any, the headers that applications include, a
# CMake package, a .pc file.
include(CMakePackageConfigHelpers)

set(KEST_GPS_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/Kest_GPS)
set(KEST_GPS_PACKAGEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/Kest_GPS)

set(KEST_GPS_PUBLIC_HEADERS
    GpsLib/GpsExport.h
    GpsLib/Kest_GPS.h
    GpsLib/comm/CommListener.h
    GpsLib/comm/Observable.h
    GpsLib/contracts/KestApi.h
    GpsLib/contracts/KestEvent.h
    GpsLib/contracts/KestRoute.h
    GpsLib/contracts/KestThread.h
    GpsLib/device/CGPSCOMDevice.h
    GpsLib/device/CGPSDeviceEx.h
    GpsLib/device/GpsEvents.h
    GpsLib/device/HEADINGSTATETYPE.h
    GpsLib/device/MOVESTATETYPE.h
    GpsLib/filter/FILTERMODEL.h
    GpsLib/log/CGPSLogDevice.h
    GpsLib/log/LOGTYPE.h
    GpsLib/records/GPSRecords.h
    GpsLib/simu/CGPSSimuDevice.h)
set(KEST_GPS_LAYER_HEADERS
    adapter/AdapterCounts.h
    adapter/CFixEpochs.h
    adapter/CMissingGga.h
    adapter/CSatellitesInView.h
    adapter/CSatellitesUsed.h
    adapter/CSentenceAdapter.h
    adapter/CSentenceCutter.h
    adapter/CSentenceFields.h
    adapter/CSentenceSink.h
    adapter/FieldText.h
    adapter/Talkers.h
    event/EventReceivers.h
    platform/PortMap.h
    platform/PortOptions.h
    route/CGuidePath.h)
foreach(header ${KEST_GPS_LAYER_HEADERS})
    get_filename_component(layer ${header} DIRECTORY)
    if(TARGET kest_layer_${layer})
        list(APPEND KEST_GPS_PUBLIC_HEADERS layers/${header})
    endif()
endforeach()
foreach(header ${KEST_GPS_PUBLIC_HEADERS})
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${KEST_GPS_INCLUDEDIR}/${folder})
endforeach()

set(KEST_GPS_LIBRARIES Kest_GPS)
if(TARGET Kest_Layers)
    list(APPEND KEST_GPS_LIBRARIES Kest_Layers)
endif()
install(TARGETS ${KEST_GPS_LIBRARIES} kest_contracts EXPORT Kest_GPSTargets)
install(EXPORT Kest_GPSTargets NAMESPACE Kest:: DESTINATION ${KEST_GPS_PACKAGEDIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/Kest_GPSConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
list(TRANSFORM KEST_GPS_LIBRARIES PREPEND -l OUTPUT_VARIABLE KEST_GPS_LINKED)
list(JOIN KEST_GPS_LINKED " " KEST_GPS_LINKED)
configure_file(cmake/Kest_GPS.pc.in Kest_GPS.pc @ONLY)
install(FILES cmake/Kest_GPSConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/Kest_GPSConfigVersion.cmake
    DESTINATION ${KEST_GPS_PACKAGEDIR})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/Kest_GPS.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
