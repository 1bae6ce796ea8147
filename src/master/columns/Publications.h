// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where the measures were published.
#pragma once

#include <string_view>

namespace zova {

inline constexpr std::string_view kBecker =
    "Erdelyi, M. H., & Becker, J. (1974). Hypermnesia for pictures: Incremental memory for pictures but not words in "
    "multiple recall trials. Cognitive Psychology, 6, 159-171.";
inline constexpr std::string_view kCohen =
    "Cohen, B. H., Sakoda, J. M., & Bousfield, W. A. (1954). The statistical analysis of the incidence of clustering "
    "in the recall of randomly arranged associates (Technical Report No. 10). University of Connecticut.";
inline constexpr std::string_view kBower =
    "Bower, G. H., Lesgold, A. M., & Tieman, D. (1969). Grouping operations in free recall. Journal of Verbal Learning "
    "and Verbal Behavior, 8, 481-493.";
inline constexpr std::string_view kBousfield =
    "Bousfield, A. K., & Bousfield, W. A. (1966). Measurement of clustering and of sequential constancies in repeated "
    "free recall. Psychological Reports, 19, 935-942.";
inline constexpr std::string_view kFrankel =
    "Frankel, F., & Cole, M. (1971). Measures of category clustering in free recall. Psychological Bulletin, 76, "
    "39-44.";
inline constexpr std::string_view kStricker =
    "Stricker, J. L., Brown, G. G., Wixted, J., Baldo, J. V., & Delis, D. C. (2002). New semantic and serial "
    "clustering indices for the California Verbal Learning Test-Second Edition: Background, rationale, and formulae. "
    "Journal of the International Neuropsychological Society, 8, 425-435.";
inline constexpr std::string_view kPolyn =
    "Polyn, S. M., Norman, K. A., & Kahana, M. J. (2009). A context maintenance and retrieval model of organizational "
    "processes in free recall. Psychological Review, 116, 129-156.";
inline constexpr std::string_view kSternberg =
    "Bousfield, A. K., & Bousfield, W. A. (1966). Measurement of clustering and of sequential constancies in repeated "
    "free recall. Psychological Reports, 19, 935-942. Sternberg, R. J., & Tulving, E. (1977). The measurement of "
    "subjective organization in free recall. Psychological Bulletin, 84, 539-556.";
inline constexpr std::string_view kTulving =
    "Tulving, E. (1962). Subjective organization in free recall of \"unrelated\" words. Psychological Review, 69, "
    "344-354.";
inline constexpr std::string_view kCongleton =
    "Congleton, A. R., & Rajaram, S. (2014). Collaboration changes both the content and the structure of memory: "
    "Building the architecture of shared representations. Journal of Experimental Psychology: General, 143, "
    "1570-1584.";
inline constexpr std::string_view kHogan =
    "Hogan, R. M. (1975). Interitem encoding and directed search in free recall. Memory & Cognition, 3, 197-209.";
inline constexpr std::string_view kKahana =
    "Kahana, M. J. (1996). Associative retrieval processes in free recall. Memory & Cognition, 24, 103-109.";

inline constexpr std::string_view kRoenker =
    "Roenker, D. L., Thompson, C. P., & Brown, S. C. (1971). Comparison of measures for the estimation of clustering "
    "in "
    "free recall. Psychological Bulletin, 76, 45-48.";

}  // namespace zova
