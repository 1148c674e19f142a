import java.awt.Color;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;
import java.util.function.Predicate;

/** The panel that lies on top once the card is folded: the conversation's name and a keypad. */
final class CardCover {
    private static final String[] KEYPAD = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"};
    private static final float CAP = 21f;
    private static final float CAP_GAP = 5f;
    private static final float KEYPAD_WIDTH = 3 * CAP + 2 * CAP_GAP;
    private static final float KEYPAD_HEIGHT = 4 * CAP + 3 * CAP_GAP;
    private static final float TEXT_WIDTH = CardLayout.BODY_WIDTH - KEYPAD_WIDTH - 16f;

    /** The name is set in the largest of these that leaves room for the rest. */
    private static final float[] NAME_SIZES = {19f, 16f, 13f, 10f, 8f, CardLayout.READABLE};
    private static final float NAME_LEADING = 1.15f;

    private static final float MARGIN = CardLayout.PADDING * 1.5f;
    private static final float LABEL_HEIGHT = 8f;
    private static final float SERVER_SIZE = 7.5f;
    private static final float SERVER_LEADING = 9f;
    private static final float HINT_SIZE = CardLayout.READABLE;
    private static final float HINT_LEADING = 8.4f;
    private static final float GAP = 5f;

    private static final String LONG_KEYS_HINT = "Two or more digits: press them quickly, one after the other.";
    private static final String CONDITIONAL_HINT =
            "* Not every subscriber has this task: a feature, class of service or phone system decides.";
    private static final String NO_KEYS_HINT = "No menu of this conversation has a key.";

    private final String name;
    private final String server;
    private final List<String> hints = new ArrayList<>();

    CardCover(KeyMap map, List<KeyMap.Section> sections) throws IOException {
        name = CardFonts.printable(map.conversation);
        server = map.isStock() ? "" : CardFonts.printable(map.product + " " + map.version);
        addHint(sections.isEmpty(), NO_KEYS_HINT);
        addHint(any(sections, mapping -> mapping.keys.length() > 1), LONG_KEYS_HINT);
        addHint(any(sections, KeyMap.Mapping::isConditional), CONDITIONAL_HINT);
    }

    private static boolean any(List<KeyMap.Section> sections, Predicate<KeyMap.Mapping> holds) {
        return sections.stream().flatMap(section -> section.mappings.stream()).anyMatch(holds);
    }

    private void addHint(boolean applies, String hint) throws IOException {
        if (applies) {
            hints.addAll(CardFonts.wrap(CardFonts.REGULAR, HINT_SIZE, hint, TEXT_WIDTH));
        }
    }

    String name() {
        return name;
    }

    void paint(CardPen pen, float panelLeft, float panelTop) throws IOException {
        float left = panelLeft + MARGIN;
        float bottom = panelTop - CardLayout.PANEL_HEIGHT + MARGIN;
        float y = panelTop - MARGIN - LABEL_HEIGHT;
        pen.text(CardFonts.BOLD, 7f, CardPen.INK_BLUE, left, y, "VOICE MAILBOX KEYS");

        List<String> serverLines = CardFonts.wrap(CardFonts.REGULAR, SERVER_SIZE, server, TEXT_WIDTH);
        float hintsTop = bottom + hints.size() * HINT_LEADING;
        float room = y - hintsTop - 3 * GAP - serverLines.size() * SERVER_LEADING;
        float size = nameSize(room);

        y -= GAP;
        for (String line : CardFonts.wrap(CardFonts.BOLD, size, name, TEXT_WIDTH)) {
            y -= size * NAME_LEADING;
            pen.text(CardFonts.BOLD, size, Color.BLACK, left, y, line);
        }
        y -= GAP;
        for (String line : serverLines) {
            y -= SERVER_LEADING;
            pen.text(CardFonts.REGULAR, SERVER_SIZE, CardPen.GREY, left, y, line);
        }
        y = hintsTop;
        for (String line : hints) {
            y -= HINT_LEADING;
            pen.text(CardFonts.REGULAR, HINT_SIZE, CardPen.GREY, left, y, line);
        }
        paintKeypad(pen, panelLeft + CardLayout.PANEL_WIDTH - MARGIN - KEYPAD_WIDTH,
                panelTop - (CardLayout.PANEL_HEIGHT - KEYPAD_HEIGHT) / 2);
    }

    private float nameSize(float room) throws IOException {
        for (float size : NAME_SIZES) {
            int lines = CardFonts.wrap(CardFonts.BOLD, size, name, TEXT_WIDTH).size();
            if (lines * size * NAME_LEADING <= room) {
                return size;
            }
        }
        return NAME_SIZES[NAME_SIZES.length - 1];
    }

    private void paintKeypad(CardPen pen, float left, float top) throws IOException {
        for (int key = 0; key < KEYPAD.length; key++) {
            float x = left + key % 3 * (CAP + CAP_GAP);
            float y = top - CAP - key / 3 * (CAP + CAP_GAP);
            pen.box(x, y, CAP, CAP, 4f, CardPen.CAP, CardPen.CAP_EDGE);
            float indent = (CAP - CardFonts.width(CardFonts.BOLD, 11f, KEYPAD[key])) / 2;
            pen.text(CardFonts.BOLD, 11f, CardPen.INK_BLUE, x + indent, y + CAP / 2 - 4f, KEYPAD[key]);
        }
    }
}
