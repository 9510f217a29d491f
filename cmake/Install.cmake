# What a device build takes: two libraries, the headers that applications include, a CMake package, a .pc file.
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
    GpsLib/simu/CGPSSimuDevice.h
    layers/adapter/AdapterCounts.h
    layers/adapter/CFixEpochs.h
    layers/adapter/CMissingGga.h
    layers/adapter/CSatellitesInView.h
    layers/adapter/CSatellitesUsed.h
    layers/adapter/CSentenceAdapter.h
    layers/adapter/CSentenceCutter.h
    layers/adapter/CSentenceFields.h
    layers/adapter/CSentenceSink.h
    layers/adapter/FieldText.h
    layers/adapter/Talkers.h
    layers/event/EventReceivers.h
    layers/platform/PortMap.h
    layers/route/CGuidePath.h)
foreach(header ${KEST_GPS_PUBLIC_HEADERS})
    get_filename_component(folder ${header} DIRECTORY)
    install(FILES ${header} DESTINATION ${KEST_GPS_INCLUDEDIR}/${folder})
endforeach()

install(TARGETS Kest_GPS Kest_Layers kest_contracts EXPORT Kest_GPSTargets)
install(EXPORT Kest_GPSTargets NAMESPACE Kest:: DESTINATION ${KEST_GPS_PACKAGEDIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/Kest_GPSConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
configure_file(cmake/Kest_GPS.pc.in Kest_GPS.pc @ONLY)
install(FILES cmake/Kest_GPSConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/Kest_GPSConfigVersion.cmake
    DESTINATION ${KEST_GPS_PACKAGEDIR})
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/Kest_GPS.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
