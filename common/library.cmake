# ICU fills the table of double-byte characters (common/text/jis.cpp); nothing else uses it.
find_package(ICU REQUIRED COMPONENTS uc)
target_link_libraries(zoka_common PRIVATE ICU::uc)
