// A fresh local application-data folder for one test, under a user name that is no ASCII and holds blanks.
#pragma once

#include <string>

// Names the folder of the local application data to this process.
void use_local_app_data(const std::string& folder);

// The folder that holds the running test program, without a trailing separator.
std::string test_program_folder();

class TestFolder {
public:
    TestFolder();  // made, and named as the local application data
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder();  // removed with all that it holds

    const std::string& path() const { return m_path; }
    std::string data() const { return m_path + "\\Corvane"; }

    // `name` is relative to the data directory; its folders are made.
    void write(const std::string& name, const std::string& bytes) const;
    std::string read(const std::string& name) const;  // empty when there is no such file
    bool has(const std::string& name) const;
    void age(const std::string& name) const;  // as if it had been written an hour earlier

private:
    std::string m_root;
    std::string m_path;
};
