# The JSON library of this system, which is all headers, without the other headers beside it.
find_path(TERVALE_HOST_JSON nlohmann/json.hpp NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(folder ${PROJECT_BINARY_DIR}/host-include)
file(MAKE_DIRECTORY ${folder})
file(CREATE_LINK ${TERVALE_HOST_JSON}/nlohmann ${folder}/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${folder})
