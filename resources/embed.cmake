# strandline_embed_images(<target>): puts every numbered image of resources/images (NNN.gif, NNN.bmp) into the target
# and into its sanitized twin, which then have OwnImages() of platform/desk/own_resources.h. A changed image is assembled anew; one that comes or goes
# configures anew. To be included at the top level: it enables the assembler.

enable_language(ASM)
set(STRANDLINE_IMAGES_FOLDER "${CMAKE_CURRENT_LIST_DIR}/images")

function(strandline_embed_images target)
  file(GLOB images CONFIGURE_DEPENDS "${STRANDLINE_IMAGES_FOLDER}/*.gif" "${STRANDLINE_IMAGES_FOLDER}/*.bmp")
  set(bytes "")
  set(declarations "")
  set(rows "")
  set(seen "")
  foreach(image IN LISTS images)
    get_filename_component(number "${image}" NAME_WE)
    if(NOT number MATCHES "^[0-9]+$")
      message(FATAL_ERROR "${image}: an image's name is its number")
    endif()
    if(number IN_LIST seen)
      message(FATAL_ERROR "${image}: there is a second image ${number}")
    endif()
    list(APPEND seen "${number}")
    string(APPEND bytes
      "  .global strandline_image_${number}\n"
      "  .global strandline_image_${number}_end\n"
      "strandline_image_${number}:\n"
      "  .incbin \"${image}\"\n"
      "strandline_image_${number}_end:\n"
      "  .byte 0\n")
    string(APPEND declarations
      "extern const unsigned char strandline_image_${number}[];\n"
      "extern const unsigned char strandline_image_${number}_end[];\n")
    string(APPEND rows "      {${number}, {strandline_image_${number}, strandline_image_${number}_end}},\n")
  endforeach()
  if(NOT seen)
    message(FATAL_ERROR "${STRANDLINE_IMAGES_FOLDER}: no images")
  endif()

  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}_images")
  set(assembler "${folder}/own_images.S")
  set(table "${folder}/own_images.cpp")
  # The last section tells the linker that none of this wants to run on the stack.
  file(CONFIGURE OUTPUT "${assembler}" @ONLY CONTENT
    "  .section .rodata\n${bytes}  .section .note.GNU-stack,\"\",@progbits\n")
  file(CONFIGURE OUTPUT "${table}" @ONLY CONTENT
"// Made by resources/embed.cmake.
#include \"platform/desk/own_resources.h\"

extern \"C\" {
${declarations}}

namespace strandline::desk {

std::span<const OwnImage> OwnImages() {
  static const OwnImage kImages[] = {
${rows}  };
  return kImages;
}

}  // namespace strandline::desk
")
  # The target's options for C++ come along, and clang complains of those that an assembler doesn't use.
  set_source_files_properties("${assembler}" PROPERTIES
    OBJECT_DEPENDS "${images}" COMPILE_OPTIONS "-Wno-unused-command-line-argument")
  target_sources(${target} PRIVATE "${assembler}" "${table}")
  if(TARGET ${target}_sanitized)
    target_sources(${target}_sanitized PRIVATE "${assembler}" "${table}")
  endif()
endfunction()
