// Each question by itself.
#pragma once

#include "lookback/answers/answer.hpp"

namespace quillmere::lookback {

/// Today, this week, last week and this month, whatever the range of the look back is.
Answer howMuchAnswer(const figures::LookBack& look);

/// By hour of the day and by weekday.
Answer whenAnswer(const figures::LookBack& look);

/// The outcomes with most time, and their trend.
Answer outcomesAnswer(const figures::LookBack& look);

/// Sessions and time, planned and done, and the newest blocks.
Answer plansAnswer(const figures::LookBack& look);

/// The most frequent words and phrases of distractions.
Answer distractionsAnswer(const figures::LookBack& look);

/// The newest lessons and improvements.
Answer lessonsAnswer(const figures::LookBack& look);

/// Energy and morale against completion, by weekday.
Answer moodAnswer(const figures::LookBack& look);

/// Their length, planned and taken, and the latest overlong ones.
Answer breaksAnswer(const figures::LookBack& look);

}  // namespace quillmere::lookback
