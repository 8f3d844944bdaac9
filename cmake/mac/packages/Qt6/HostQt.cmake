# Where the Qt of this system is, and its version.
file(GLOB folders /usr/include/*/qt6 /usr/include/qt6)
find_path(TERVALE_HOST_QT_HEADERS QtCore/qconfig.h PATHS ${folders} NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(GLOB folders /usr/lib/*)
find_path(TERVALE_HOST_QT_LIBRARIES libQt6Core.so PATHS ${folders} /usr/lib
    NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(STRINGS ${TERVALE_HOST_QT_HEADERS}/QtCore/qconfig.h line REGEX "QT_VERSION_STR")
string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" TERVALE_HOST_QT_VERSION "${line}")
