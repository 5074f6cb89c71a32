# Glyphs come from FreeType, their files are found by fontconfig, pictures are written by libpng.
find_package(Freetype REQUIRED)
find_package(Fontconfig REQUIRED)
find_package(PNG REQUIRED)
target_link_libraries(zoka_screen PRIVATE Freetype::Freetype Fontconfig::Fontconfig PNG::PNG)

# Loops over rows of pixels, whose length is known only when they run: -O2 does not vectorise those.
if(CMAKE_BUILD_TYPE STREQUAL Release)
  foreach(source grph_page raster flood_fill grph_block rsrc_pages compose)
    set_source_files_properties(${CMAKE_SOURCE_DIR}/run/screen/${source}.cpp
                                PROPERTIES COMPILE_OPTIONS -O3)
  endforeach()
endif()
