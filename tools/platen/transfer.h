#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include <platen/tiff/TiffCopy.h>

#include "commands.h"
#include "source_file.h"

/// What the subcommands that write a file from another one have in common.
namespace platen::tool {

struct TransferOptions {
    std::string in;
    std::string out;
    bool intel = false;
    bool motorola = false;
    bool force = false;

    void AddTo(CLI::App& command);
    /// The byte order asked for, or else that of the source.
    [[nodiscard]] short OrderFor(const Tiff& source) const;
};

/// Writes the faithful copy, with progress, and prints what went wrong. The exit status.
int CopyFaithfully(SourceFile<TiffCopy>& source, const TransferOptions& options);

/// Reads the input and has the engine write the output by itself. The exit status.
int WriteByEngine(const TransferOptions& options, long (Tiff::*write)(void*, short));

}  // namespace platen::tool
