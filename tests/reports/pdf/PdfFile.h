#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "reports/pdf/clsPDFCreator.h"
#include "tests/support/TemporaryFolder.h"

namespace marvello::test {

/// The clock stands at 07:08:09 on 5 November 2026, the random digit is 3.
PdfSurroundings fixedSurroundings(const std::string& folder = "/tmp");

/// A written file, found in by its cross-reference lines alone.
class PdfFile {
  public:
    explicit PdfFile(std::string bytes);
    const std::string& bytes() const { return bytes_; }
    /// The lines between "xref" and "trailer", without the first one.
    const std::vector<std::string>& references() const { return references_; }
    /// The object from its number to before "endobj"; "" for a number that is not used.
    std::string object(int number) const;
    /// What stands between "stream" and "endstream", less the line end.
    std::string stream(int number) const;

  private:
    std::string bytes_;
    std::vector<std::string> references_;
};

std::string readFile(const std::filesystem::path& file);
std::vector<std::string> linesOf(const std::string& text);

/// Files of a test, in a folder that goes with it; as texts, which commands and the creator take.
class Folder {
  public:
    std::string operator/(const std::string& name) const { return (folder_ / name).string(); }
    std::string path() const { return folder_.string(); }

  private:
    TemporaryFolder folder_{"marvello-pdf"};
};

/// Writes two pages of 200 by 100 points with a blue header. On the first are a red rectangle, a blue circle,
/// a green line, a pie and an image of four colours, on the second a line of text in each family.
void writeSample(const std::string& file, PdfSurroundings surroundings = PdfSurroundings::system());

/// A document with what `before` makes outside of pages and one page of what `draw` draws; its first object
/// is 6.
PdfFile writtenBy(const std::function<void(clsPDFCreator&)>& draw,
                  const std::function<void(clsPDFCreator&)>& before = {});

/// The lines of the content of a page without fonts and forms.
std::vector<std::string> contentOf(const std::function<void(clsPDFCreator&)>& draw);

}  // namespace marvello::test
