#include "qxfont/specimen/sample_text.h"

namespace qxfont {

// Pangrams where the script has letters enough to need one, else a line that its readers know. Of
// the Chinese ones each has characters that the other way of writing does not use.
const std::vector<SentenceRow>& sentences() {
  static const std::vector<SentenceRow> rows = {
      {"Latin", "Sphinx of black quartz, judge my vow."},
      {"Latin", "Sphinx of black quartz judge my vow"},
      {"Latin", "SPHINX OF BLACK QUARTZ JUDGE MY VOW"},
      {"Greek", "Ξεσκεπάζω την ψυχοφθόρα βδελυγμία"},
      {"Greek", "αβγδεζηθικλμνξοπρστυφχψω"},
      {"Cyrillic", "Съешь же ещё этих мягких французских булок"},
      {"Armenian", "Բոլոր մարդիկ ծնվում են ազատ"},
      {"Georgian", "ყველა ადამიანი იბადება თავისუფალი"},
      {"Hebrew", "דג סקרן שט בים מאוכזב ולפתע מצא חברה"},
      {"Arabic", "نص حكيم له سر قاطع وذو شأن عظيم"},
      {"Devanagari", "सभी मनुष्यों को गौरव और अधिकारों के मामले में जन्मजात स्वतन्त्रता"},
      {"Thai", "เป็นมนุษย์สุดประเสริฐเลิศคุณค่า"},
      {"Korean", "다람쥐 헌 쳇바퀴에 타고파"},
      {"Japanese", "いろはにほへと散りぬるを我が世誰ぞ常ならむ"},
      {"Chinese, simplified", "天地玄黄，宇宙洪荒。日月盈昃，辰宿列张。"},
      {"Chinese, traditional", "天地玄黃，宇宙洪荒。日月盈昃，辰宿列張。"},
  };
  return rows;
}

}  // namespace qxfont
