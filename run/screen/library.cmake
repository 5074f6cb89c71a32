# Glyphs come from FreeType, their files are found by fontconfig, pictures are written by libpng.
find_package(Freetype REQUIRED)
find_package(Fontconfig REQUIRED)
find_package(PNG REQUIRED)
target_link_libraries(zoka_screen PRIVATE Freetype::Freetype Fontconfig::Fontconfig PNG::PNG)
