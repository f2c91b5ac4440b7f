#pragma once

/// One variant in an archive, as its file's header has it. Texts end with a zero.
struct ARCHIVEENTRY {
    char szFileTitle[9]; ///< the file's name without folder and extension
    char szBaseName[129];
    char szBaseTag[4];
    short nVariantNumber; ///< within the Base, from 0
    short bDeleted;       ///< nonzero on what the user chose to delete
    char szVariantName[18];
};
