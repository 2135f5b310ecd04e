#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace rulemesh {

/// The names of the files that a writer keeps beside a file for a moment: the file's own name, then the writer's
/// process and a number. They tell whether their writer lives, so that what a killed one left behind can be told from
/// what another program is writing just now.

/// What a file is doing there: a new text that is not whole yet, or the whole old text of a file that is being written
/// in place.
enum class Beside { NewText, OldText };

/// The path of such a file of this process.
[[nodiscard]] std::string PathBeside(const std::string& file, Beside purpose, int number);

/// The files of that purpose beside a file whose writers have ended (or are this process, which writes one at a time).
[[nodiscard]] std::vector<std::string> LeftBeside(const std::string& file, Beside purpose);

/// Removes what killed writers left of new texts beside a file.
void SweepBeside(const std::string& file);

/// The same for all files of a folder whose names end so.
void SweepFolder(const std::string& folder, std::string_view ending);

/// A path without its file's name, and the name alone.
[[nodiscard]] std::string FolderOf(const std::string& path);
[[nodiscard]] std::string NameOf(const std::string& path);

} // namespace rulemesh
