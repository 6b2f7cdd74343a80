// What the shipped stages promise to whoever plays them, in figures of the report.
#pragma once

#include <string>
#include <vector>

#include "report.h"

// The questions that the promises are about; a part of AllQuestions.
std::vector<Question> PromisedQuestions();

// What is broken, a line each; empty when all is kept. `answers`: to the questions above, in any order.
std::vector<std::string> BrokenPromises(const std::vector<Answer>& answers);
