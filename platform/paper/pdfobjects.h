#pragma once
// The objects of a PDF, each in the format's own words, and the file that is made of them: compressed, with the table
// of its objects. What they mean is not known here.
//
// This header and its source keep to C++17: the library's own headers are no C++20 for every compiler.
#include <memory>
#include <string>

namespace velm {

/// Each operation throws a std::exception when words are none of the format, or memory does not suffice.
class PdfObjects {
public:
    PdfObjects();
    ~PdfObjects();
    PdfObjects(const PdfObjects&) = delete;
    PdfObjects& operator=(const PdfObjects&) = delete;
    PdfObjects(PdfObjects&&) = delete;
    PdfObjects& operator=(PdfObjects&&) = delete;

    /// A new object: its number, by which others refer to it ("7 0 R").
    int add(const std::string& words);
    int addStream(const std::string& dictionary, const std::string& bytes);
    /// One that gets its words later.
    int reserve();
    void set(int number, const std::string& words);

    /// What the file begins with, a key each ("/Pages").
    void setInRoot(const std::string& key, const std::string& words);
    void setInRoot(const std::string& key, int number);
    void setInfo(const std::string& words);

    /// The file. What nothing leads to is left out.
    std::string write();

    static std::string reference(int number) { return std::to_string(number) + " 0 R"; }

private:
    struct File;
    std::unique_ptr<File> file_;
};

} // namespace velm
