import java.awt.Color;
import java.io.IOException;
import java.util.ArrayList;
import java.util.List;

/** The panel that lies on top once the card is folded: the conversation's name and a keypad. */
final class CardCover {
    private static final String[] KEYPAD = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "*", "0", "#"};
    private static final float CAP = 21f;
    private static final float CAP_GAP = 5f;
    private static final float KEYPAD_WIDTH = 3 * CAP + 2 * CAP_GAP;
    private static final float KEYPAD_HEIGHT = 4 * CAP + 3 * CAP_GAP;
    private static final float TEXT_WIDTH = CardLayout.BODY_WIDTH - KEYPAD_WIDTH - 16f;

    /** The name is set in the largest of these that leaves room for the rest. */
    private static final float[] NAME_SIZES = {19f, 16f, 13f, 10f, 8f, 6f};
    private static final float NAME_LEADING = 1.15f;

    private static final float MARGIN = CardLayout.PADDING * 1.5f;
    private static final float LABEL_HEIGHT = 8f;
    private static final float SERVER_SIZE = 7.5f;
    private static final float SERVER_LEADING = 9f;
    private static final float HINT_SIZE = 6f;
    private static final float HINT_LEADING = 7.2f;
    private static final float GAP = 5f;

    private static final String[] HINTS = {
        "Two or more digits: press them quickly, one after the other.",
        "A task with an asterisk (*) behind it is there only where a feature, the class of service"
                + " or the phone system allows it.",
    };

    private final KeyMap map;
    private final String name;

    CardCover(KeyMap map) {
        this.map = map;
        this.name = CardFonts.printable(map.conversation());
    }

    String name() {
        return name;
    }

    void paint(CardPen pen, float panelLeft, float panelTop) throws IOException {
        float left = panelLeft + MARGIN;
        float bottom = panelTop - CardLayout.PANEL_HEIGHT + MARGIN;
        float y = panelTop - MARGIN - LABEL_HEIGHT;
        pen.text(CardFonts.BOLD, 7f, CardPen.INK_BLUE, left, y, "VOICE MAILBOX KEYS");

        List<String> hints = hintLines();
        String product = CardFonts.printable(map.product() + " " + map.version());
        List<String> server = CardFonts.wrap(CardFonts.REGULAR, SERVER_SIZE, product, TEXT_WIDTH);
        float hintsTop = bottom + hints.size() * HINT_LEADING;
        float room = y - hintsTop - 3 * GAP - server.size() * SERVER_LEADING;
        float size = nameSize(room);

        y -= GAP;
        for (String line : CardFonts.wrap(CardFonts.BOLD, size, name, TEXT_WIDTH)) {
            y -= size * NAME_LEADING;
            pen.text(CardFonts.BOLD, size, Color.BLACK, left, y, line);
        }
        y -= GAP;
        for (String line : server) {
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

    private static List<String> hintLines() throws IOException {
        List<String> lines = new ArrayList<>();
        for (String hint : HINTS) {
            lines.addAll(CardFonts.wrap(CardFonts.REGULAR, HINT_SIZE, hint, TEXT_WIDTH));
        }
        return lines;
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
