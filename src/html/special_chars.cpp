// SPDX-License-Identifier: GPL-3.0-or-later
#include "html/special_chars.h"

namespace kelvor {

namespace {

/// No markup character and no blank is convertible: a conversion must leave tags and entities whole.
const std::array<SpecialCharEntry, 70> table = {
    {{"À", "&Agrave;", 1}, {"Á", "&Aacute;", 1}, {"Â", "&Acirc;", 1},  {"Ã", "&Atilde;", 1}, {"Ä", "&Auml;", 1},
     {"Å", "&Aring;", 1},  {"Æ", "&AElig;", 1},  {"Ç", "&Ccedil;", 1}, {"È", "&Egrave;", 1}, {"É", "&Eacute;", 1},
     {"Ê", "&Ecirc;", 1},  {"Ë", "&Euml;", 1},   {"Ì", "&Igrave;", 1}, {"Í", "&Iacute;", 1}, {"Î", "&Icirc;", 1},
     {"Ï", "&Iuml;", 1},   {"Ð", "&ETH;", 1},    {"Ñ", "&Ntilde;", 1}, {"Ò", "&Ograve;", 1}, {"Ó", "&Oacute;", 1},
     {"Ô", "&Ocirc;", 1},  {"Õ", "&Otilde;", 1}, {"Ö", "&Ouml;", 1},   {"Ø", "&Oslash;", 1}, {"Ú", "&Uacute;", 1},
     {"Ù", "&Ugrave;", 1}, {"Û", "&Ucirc;", 1},  {"Ü", "&Uuml;", 1},   {"Ý", "&Yacute;", 1}, {"Þ", "&THORN;", 1},
     {"ß", "&szlig;", 1},  {"á", "&aacute;", 1}, {"à", "&agrave;", 1}, {"â", "&acirc;", 1},  {"ã", "&atilde;", 1},
     {"ä", "&auml;", 1},   {"å", "&aring;", 1},  {"æ", "&aelig;", 1},  {"ç", "&ccedil;", 1}, {"è", "&egrave;", 1},
     {"é", "&eacute;", 1}, {"ê", "&ecirc;", 1},  {"ë", "&euml;", 1},   {"ì", "&igrave;", 1}, {"í", "&iacute;", 1},
     {"î", "&icirc;", 1},  {"ï", "&iuml;", 1},   {"ð", "&eth;", 1},    {"ñ", "&ntilde;", 1}, {"ó", "&oacute;", 1},
     {"ò", "&ograve;", 1}, {"ô", "&ocirc;", 1},  {"õ", "&otilde;", 1}, {"ö", "&ouml;", 1},   {"ø", "&oslash;", 1},
     {"ù", "&ugrave;", 1}, {"ú", "&uacute;", 1}, {"û", "&ucirc;", 1},  {"ü", "&uuml;", 1},   {"ý", "&yacute;", 1},
     {"þ", "&thorn;", 1},  {"ÿ", "&yuml;", 1},   {"<", "&lt;", 0},     {">", "&gt;", 0},     {"&", "&amp;", 0},
     {"\"", "&quot;", 0},  {" ", "&nbsp;", 0},   {"®", "&reg;", 0},    {"©", "&copy;", 0},   {"TM", "&trade;", 0}}};

}  // namespace

void initSpecialChars() {
    specialChars = table;
}

}  // namespace kelvor
