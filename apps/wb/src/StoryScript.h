#pragma once

#include <string>
#include <string_view>
#include <vector>

/// One line of a story: its words, and where it stands.
struct StoryStep
{
    int line = 0;
    std::vector<std::string> words; ///< the verb first
};

/// Cuts a line into words at blanks; a word in double quotes may hold blanks, and \" \\ \n stand
/// for the quote, the backslash and the line end. False for a quote that is not closed.
bool SplitStoryLine(std::string_view line, std::vector<std::string>& words);

/// Reads a story: a step a line; empty lines and lines that begin with "#" are notes. What is wrong
/// is a sentence with file and line; an unknown verb or a wrong number of words is found before
/// anything is played.
bool ReadStory(const std::string& path, std::vector<StoryStep>& steps, std::string& problem);
