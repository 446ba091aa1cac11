#pragma once

#include "controls/Dialogs.h"

#include <array>

namespace skyvert::FileTypes {

/// All files, for the open dialog of the import.
inline constexpr FileType Any{.Name = "special/any",
                              .Extensions = "",
                              .MacType = "????",
                              .MacCreator = "????",
                              .MimeType = "",
                              .Imported = true,
                              .ConformsTo = "",
                              .UTI = ""};

/// Text files, for the save dialog of the export.
inline constexpr FileType Text{
    .Name = "text/plain",
    .Extensions =
        ".asc;.ascii;.bas;.c;.class;.cp;.cpp;.h;.hp;.hpp;.i3;.java;.m2;.m3;.mak;.text;.txt",
    .MacType = "TEXT",
    .MacCreator = "????",
    .MimeType = "",
    .Imported = true,
    .ConformsTo = "",
    .UTI = "public.text"};

inline constexpr std::array<const FileType*, 2> pAllFileTypes{&Any, &Text};

} // namespace skyvert::FileTypes
