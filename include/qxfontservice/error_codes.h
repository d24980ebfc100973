#pragma once

namespace QXFontService_NS {

/// Codes of `QXError` records made by the service; 0 is success.
///
/// Codes whose level (`getErrorLevel`) is `QXERRORLEVEL_COLLECT` and that come from the
/// configuration are collected and read with `FS_GetFontError`; the other configuration codes stop
/// what they interrupt. Codes of font files are filled into the record of the failing call.
enum FS_ERROR : int {
  FS_ERROR_NONE = 0,

  // Configuration and service: these stop the opening.
  FS_ERROR_SERVICE = 1024,               ///< Any failure without a text of its own.
  FS_ERROR_NOT_SPECIFIED = 1025,         ///< Something required was not given; not raised.
  FS_ERROR_CONFIG_NOT_FOUND = 1026,      ///< No configuration file and no system font folder.
  FS_ERROR_NO_FONT_FOLDER = 1027,        ///< The configuration names no usable folder.
  FS_ERROR_UNEXPECTED_START_TAG = 1028,  ///< An element that is not allowed at its place.
  FS_ERROR_UNEXPECTED_END_TAG = 1029,    ///< An end tag that does not close the open element.
  FS_ERROR_INVALID_EXTENSION = 1035,     ///< A file extension that is not known; not raised.

  // Font files.
  FS_ERROR_FONT_READ = 1921,             ///< A read failed or the file is cut short.
  FS_ERROR_GLYPHLIST_OPEN = 1923,        ///< A glyph list cannot be opened.
  FS_ERROR_GLYPHLIST_READ = 1924,        ///< A glyph list cannot be read.
  FS_ERROR_PRINTER_FONT = 1925,          ///< No Type 1 font program could be read.
  FS_ERROR_FONT_INFORMATION = 1926,      ///< A font program gives no usable font information.
  FS_ERROR_FONT_FILE = 1928,             ///< A font file is malformed.
  FS_ERROR_FONT_FILE2 = 1929,            ///< As FS_ERROR_FONT_FILE; not raised.
  FS_ERROR_FONTFACE_REGISTERED = 1930,   ///< A document font in another style; not raised.
  FS_ERROR_FONTFACE_OPEN = 1931,         ///< A document font's URI cannot be opened.
  FS_ERROR_FONTFACE_CREATE = 1932,       ///< A document font has a type no class reads.
  FS_ERROR_FONTFACE_INFORMATION = 1933,  ///< A document font cannot be read.

  // Configuration: these are collected, and reading goes on.
  FS_ERROR_UNKNOWN_ATTRIBUTE = 1935,   ///< Unknown attributes are passed over: not raised.
  FS_ERROR_INVALID_VALUE = 1936,       ///< An attribute value outside its set or range.
  FS_ERROR_EMPTY_VALUE = 1937,         ///< A required attribute is missing or empty.
  FS_ERROR_NO_FILE_PATH = 1938,        ///< A folder path that is no local file location.
  FS_ERROR_RELATIVE_PATH = 1939,       ///< A folder path that is not absolute.
  FS_ERROR_ALREADY_REGISTERED = 1940,  ///< A folder, file, family or setting given twice.
  FS_ERROR_NOT_BASE_FILE_NAME = 1941,  ///< A file attribute that holds a folder part.
  FS_ERROR_NOT_INTEGER = 1942,         ///< A number attribute that is not an integer.

  // Font files again.
  FS_ERROR_UNSUPPORTED = 1943,           ///< A font of another kind; not raised.
  FS_ERROR_FONTFACE_UNSUPPORTED = 1944,  ///< A document font of another kind; not raised.
  FS_ERROR_FONTFACE_UNEMBEDDABLE = 1945  ///< A warning: the font stays usable.
};

}  // namespace QXFontService_NS
