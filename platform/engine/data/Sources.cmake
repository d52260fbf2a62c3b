# The readers' sources, for the engine and for tests and fuzzers, which compile them for themselves.
set(VELMORA_DATA_SOURCES
  BinaryFormat.cpp
  Cell.cpp
  ColumnBuilder.cpp
  DataDetails.cpp
  DataReader.cpp
  DateText.cpp
  FileByteStream.cpp
  GridHeader.cpp
  GridReader.cpp
  NumberText.cpp
  RecordReader.cpp
  TableLayout.cpp
  TableReader.cpp
  TableSample.cpp
  TextDecoder.cpp
  TextSource.cpp
  UnitText.cpp)
list(TRANSFORM VELMORA_DATA_SOURCES PREPEND "${CMAKE_CURRENT_LIST_DIR}/")
