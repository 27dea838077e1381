// Between plain text and markup.
#pragma once

#include "platform/String.h"

namespace vx {

// & becomes &amp;, a double quote &quot;, ' becomes &#039;, < becomes &lt; and > becomes &gt;.
String XMLEncode(std::u16string_view Text);

// &lt; &gt; &amp; &quot; &auml; &ouml; &uuml; and &nbsp;, in any case, become <, >, &, a double quote, ä, ö, ü and
// a blank; the entity of a capital umlaut gives the small letter, which is wanted. &# with a decimal number
// becomes the code unit of that number, or a blank if what follows is no such number. An entity has at most
// five characters between & and the semicolon: all other & stand for themselves.
String XMLDecode(std::u16string_view Text);

// Text without line feeds, carriage returns and tags, which run from < to the next >, or to the end. A tab or
// blank before a further tab, blank, line end or < is left out: two blanks become one. Then &quot;, &apos;, &gt;,
// &lt; and &amp; are decoded, &amp; last: u"&amp;lt;" gives u"&lt;".
String StripHTMLTags(std::u16string_view Text);

}  // namespace vx
