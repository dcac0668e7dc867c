# Run as a script: writes the bytes of FILE as the C++ array kPlotFont into OUTPUT.
file(READ ${FILE} bytes HEX)
string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
file(WRITE ${OUTPUT}
  "#include \"host/plot/linux/plotfont.h\"\n"
  "const unsigned char kPlotFont[] = {${bytes}};\n"
  "const std::size_t kPlotFontSize = sizeof kPlotFont;\n")
