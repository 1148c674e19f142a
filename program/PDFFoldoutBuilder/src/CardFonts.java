import java.io.IOException;
import java.io.InputStream;
import java.util.ArrayList;
import java.util.List;
import org.apache.fontbox.FontBoxFont;
import org.apache.fontbox.ttf.TTFParser;
import org.apache.fontbox.ttf.TrueTypeFont;
import org.apache.pdfbox.pdmodel.PDDocument;
import org.apache.pdfbox.pdmodel.font.CIDFontMapping;
import org.apache.pdfbox.pdmodel.font.FontMapper;
import org.apache.pdfbox.pdmodel.font.FontMappers;
import org.apache.pdfbox.pdmodel.font.FontMapping;
import org.apache.pdfbox.pdmodel.font.PDCIDSystemInfo;
import org.apache.pdfbox.pdmodel.font.PDFont;
import org.apache.pdfbox.pdmodel.font.PDFontDescriptor;
import org.apache.pdfbox.pdmodel.font.PDType1Font;

/** The standard fonts of the card: what they can show, how wide it is, and where a line breaks. */
final class CardFonts {
    static {
        BundledMapper.install();
    }

    static final PDFont REGULAR = PDType1Font.HELVETICA;
    static final PDFont BOLD = PDType1Font.HELVETICA_BOLD;

    private CardFonts() {}

    /** The text with a blank for each control character and "?" for what the fonts don't have. */
    static String printable(String text) {
        StringBuilder out = new StringBuilder(text.length());
        text.codePoints().forEach(c -> {
            if (c <= ' ' || c == 0xA0 || Character.isISOControl(c)) {
                out.append(' ');
            } else {
                String shown = Character.toString(c);
                out.append(isEncodable(shown) ? shown : "?");
            }
        });
        return out.toString().strip();
    }

    private static boolean isEncodable(String character) {
        try {
            REGULAR.encode(character);
            return true;
        } catch (IOException | IllegalArgumentException missing) {
            return false;
        }
    }

    static float width(PDFont font, float size, String text) throws IOException {
        return font.getStringWidth(text) / 1000 * size;
    }

    /** The size, or the smaller one at which the text is no wider than allowed. */
    static float fittingSize(PDFont font, float size, String text, float maxWidth) throws IOException {
        return Math.min(size, size * maxWidth / Math.max(width(font, size, text), 1f));
    }

    /** Breaks a printable text at blanks, and inside a word only where the word alone is too wide. */
    static List<String> wrap(PDFont font, float size, String text, float maxWidth) throws IOException {
        List<String> lines = new ArrayList<>();
        String line = "";
        for (String word : text.split(" +")) {
            String longer = line.isEmpty() ? word : line + " " + word;
            if (width(font, size, longer) <= maxWidth) {
                line = longer;
                continue;
            }
            if (!line.isEmpty()) {
                lines.add(line);
            }
            line = word;
            while (width(font, size, line) > maxWidth && line.length() > 1) {
                int fit = charactersThatFit(font, size, line, maxWidth);
                lines.add(line.substring(0, fit));
                line = line.substring(fit);
            }
        }
        lines.add(line);
        return lines;
    }

    private static int charactersThatFit(PDFont font, float size, String word, float maxWidth)
            throws IOException {
        int count = 1;
        while (count < word.length() && width(font, size, word.substring(0, count + 1)) <= maxWidth) {
            count++;
        }
        return count;
    }

    /**
     * Answers every question for an installed font with the one that the library carries. The card
     * uses standard fonts only, whose measures the library knows; without this, the first use of a
     * font would search all of the machine's font folders and leave a cache in the user's home.
     */
    private static final class BundledMapper implements FontMapper {
        private static final String RESOURCE = "/org/apache/pdfbox/resources/ttf/LiberationSans-Regular.ttf";
        private final TrueTypeFont font;

        private BundledMapper(TrueTypeFont font) {
            this.font = font;
        }

        static void install() {
            try (InputStream stream = PDDocument.class.getResourceAsStream(RESOURCE)) {
                if (stream != null) {
                    FontMappers.set(new BundledMapper(new TTFParser().parse(stream)));
                }
            } catch (IOException unreadable) {
                // The library's own mapper stays: slower, with the same card as its result.
            }
        }

        @Override
        public FontMapping<TrueTypeFont> getTrueTypeFont(String name, PDFontDescriptor descriptor) {
            return new FontMapping<>(font, false);
        }

        @Override
        public FontMapping<FontBoxFont> getFontBoxFont(String name, PDFontDescriptor descriptor) {
            return new FontMapping<>(font, false);
        }

        @Override
        public CIDFontMapping getCIDFont(String name, PDFontDescriptor descriptor, PDCIDSystemInfo info) {
            return new CIDFontMapping(null, font, false);
        }
    }
}
