#pragma once

#include <vector>

/// Argument lists as the presets write them, which together hold every option and every kind of value of the
/// whole catalogue. "{video}", "{mono}" and so on stand for inputs, "{out}" for the output's path without its
/// extension. The lists end with the output.
struct KVCatalogueOptions {
    const char *what;
    const char *arguments; ///< Parted by blanks; "~" stands for a blank within an argument.
    /// What the tool has to have beside the encoders that the list names: "muxer ogg", "filter crop".
    const char *needs;

    static const std::vector<KVCatalogueOptions> &all();
};
