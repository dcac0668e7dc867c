# The window's own view classes in a frame without a window.
trelvan_add_test(controlstest editor
  SOURCES
    controltest.cpp
    cabouttest.cpp
    cparameterslidertest.cpp
    cpresetmenutest.cpp
    cpskickbuttontest.cpp
    cpsonoffbuttontest.cpp
    cpsrockerswitchtest.cpp
    csaveloadbuttontest.cpp
    csplashscreenmyviewtest.cpp
    cvumeter1test.cpp
    doubleclicktest.cpp
    editedtexttest.cpp
    embeddedpicturestest.cpp
    fitnametest.cpp
    messagepaneltest.cpp
    handledragtest.cpp
    fitnametest.cpp
    mousecontroltest.cpp
    myframetest.cpp
    presetpopuplayouttest.cpp
    presetpopuptest.cpp
    pressguardtest.cpp
    sliderstepstest.cpp
    steppedvaluetest.cpp
    scaledbitmaptest.cpp
    tooltipstest.cpp
    wheelstepstest.cpp
    wrappedtexttest.cpp
  LIBRARIES trelvan)

# A program of its own, since it brings a clock of its own.
trelvan_add_test(editorbasetest editor SOURCES aeffguieditortest.cpp LIBRARIES trelvan)

# The loops that drive a window: the idle passes' and the system's.
trelvan_add_test(looptest "editor;threads"
  SOURCES
    idlerunlooptest.cpp idletimertest.cpp idlewatchtest.cpp
    ${PROJECT_SOURCE_DIR}/tests/support/failingmemory.cpp
  LIBRARIES trelvan PkgConfig::GLIB)

# What the desktop has set, without a desktop.
trelvan_add_test(desktopsettingstest editor
  SOURCES desktopsettingstest.cpp scalechoicetest.cpp xsettingstest.cpp LIBRARIES trelvan)

# With the program's allocation functions replaced.
trelvan_add_test(controlsmemorytest editor
  SOURCES
    controltest.cpp modalviewtest.cpp tooltipsmemorytest.cpp
    ${PROJECT_SOURCE_DIR}/tests/support/failingmemory.cpp
  LIBRARIES trelvan)
