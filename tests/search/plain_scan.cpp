#include "tests/search/plain_scan.h"

#include "base/text.h"
#include "search/match.h"

namespace quorvane::test {
namespace {

constexpr char kWholeLexicon = '\0';

class Judge {
 public:
  explicit Judge(const ScanRequest& request) : request_(request), matcher_(request.lists) {}

  bool Accepts(const std::string& w) {
    const std::string& p = request_.prepared.text;
    matcher_.StartWord();
    switch (static_cast<int>(request_.prepared.kind)) {
      case 0: {
        if (w.size() != p.size()) {
          return false;
        }
        for (size_t i = 0; i < w.size(); ++i) {
          Test(p[i], w[i]);
        }
        return matcher_.MatchFlag();
      }
      case 1: {
        const size_t before = p.find('*');
        const size_t after = p.size() - before - 1;
        return w.size() >= before + after && Ends(w, before, after);
      }
      case 2: {
        const size_t middle = p.size() - 2;
        for (size_t s = 0; s + middle <= w.size(); ++s) {
          matcher_.ClearDigits();
          if (MiddleAt(w, 1, middle, s)) {
            return true;
          }
        }
        return false;
      }
      case 8: {
        const size_t before = p.find('*');
        const size_t after = p.size() - p.rfind('*') - 1;
        const size_t middle = p.size() - before - after - 2;
        if (w.size() < before + middle + after || !Ends(w, before, after)) {
          return false;
        }
        const Matcher::Bindings left = matcher_.DigitBindings();
        for (size_t s = before; s + middle + after <= w.size(); ++s) {
          matcher_.RestoreDigits(left);
          if (MiddleAt(w, before + 1, middle, s)) {
            return true;
          }
        }
        return false;
      }
      case 9:
        return !w.empty() && ContainsAll(w, p);
      case 10:
        return w.size() == p.size() && SortLetters(w) == SortLetters(p);
      case 11: {
        std::string s = p.substr(2);
        const bool orMore = !s.empty() && s.back() == '>';
        if (orMore) {
          s.pop_back();
        }
        int count = 0;
        for (size_t i = 0; i + s.size() <= w.size(); ++i) {
          count += w.compare(i, s.size(), s) == 0 ? 1 : 0;
        }
        const int wanted = p[1] - '0';
        return count == wanted || (orMore && count >= wanted);
      }
      case 13: {
        std::string letters = p.substr(1);
        const bool anyOrder = letters.ends_with('~');
        if (anyOrder) {
          letters.pop_back();
        }
        return FindLetters(w, letters, anyOrder);
      }
      default:
        return false;
    }
  }

 private:
  bool Test(char pc, char wc) {
    matcher_.MatchChar(pc, wc);
    return matcher_.MatchFlag();
  }

  bool Ends(const std::string& w, size_t before, size_t after) {
    const std::string& p = request_.prepared.text;
    for (size_t i = 1; i <= before; ++i) {
      Test(p[i - 1], w[i - 1]);
    }
    for (size_t i = w.size() - after + 1; i <= w.size(); ++i) {
      Test(p[i + p.size() - w.size() - 1], w[i - 1]);
    }
    return matcher_.MatchFlag();
  }

  bool MiddleAt(const std::string& w, size_t from, size_t size, size_t start) {
    matcher_.RaiseMatchFlag();
    for (size_t i = 0; i < size; ++i) {
      if (!Test(request_.prepared.text[from + i], w[start + i])) {
        return false;
      }
    }
    return true;
  }

  const ScanRequest& request_;
  Matcher matcher_;
};

class Plain {
 public:
  Plain(const Lexicon& lexicon, const ScanRequest& request, size_t capacity, const PlainCondition& condition)
      : lexicon_(lexicon), request_(request), capacity_(capacity), condition_(condition), judge_(request) {}

  PlainResult Run() {
    const Initials initials = FirstLetters(request_.prepared, request_.lists);
    for (const char c : initials.wholeLexicon ? std::string(1, kWholeLexicon) : initials.letters) {
      int from = 0;
      int to = lexicon_.count();
      if (c != kWholeLexicon) {
        const int entry = static_cast<unsigned char>(c) - 65;
        if (entry < 0 || entry > 29) {
          continue;
        }
        from = lexicon_.letterStart()[static_cast<size_t>(entry)];
        to = lexicon_.letterStart()[static_cast<size_t>(entry) + 1];
      }
      for (int i = from; i <= to; ++i) {
        const std::string_view word = lexicon_.Word(static_cast<WordNumber>(i));
        const int length = static_cast<int>(word.size());
        if (length <= request_.maxLength && length >= request_.minLength && Accepts(FoldText(word))) {
          Add(static_cast<WordNumber>(i), word);
        }
        const int step = lexicon_.count() / 20;
        if (step > 0 && i % step == 0) {
          result_.progress.push_back(static_cast<int>((static_cast<double>(i / 1000) + i) / lexicon_.count() * 100));
        }
      }
    }
    return result_;
  }

 private:
  bool Accepts(const std::string& word) { return judge_.Accepts(word) && (!condition_ || condition_(word)); }

  void Add(WordNumber number, std::string_view word) {
    if (!result_.truncated) {
      const size_t count = result_.found.size();
      if (count >= 1 && count < 32700 && lexicon_.Word(result_.found.back()) == word) {
        return;
      }
      if (word.empty() || (request_.palindromes && std::string(word.rbegin(), word.rend()) != word)) {
        return;
      }
      if (result_.listed < capacity_) {
        ++result_.listed;
      } else {
        result_.truncated = true;
      }
    }
    result_.found.push_back(number);
  }

  const Lexicon& lexicon_;
  const ScanRequest& request_;
  const size_t capacity_;
  const PlainCondition& condition_;
  Judge judge_;
  PlainResult result_;
};

}  // namespace

PlainResult PlainScan(const Lexicon& lexicon, const ScanRequest& request, size_t screenCapacity,
                      const PlainCondition& condition) {
  return Plain(lexicon, request, screenCapacity, condition).Run();
}

bool PlainFits(const ScanRequest& request, const std::string& word) {
  return Judge(request).Accepts(word);
}

}  // namespace quorvane::test
