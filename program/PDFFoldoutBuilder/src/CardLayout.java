import java.io.IOException;
import java.util.ArrayList;
import java.util.Comparator;
import java.util.List;

/**
 * Divides a key map among the panels of a card.
 *
 * <p>A menu that fits on one panel is never torn apart; a longer one begins wherever there is room
 * and goes on from panel to panel. Of the types that are easily read and let everything stand on one
 * sheet, that is taken which tears the least, then the largest; a smaller one only where it saves a
 * sheet.
 */
final class CardLayout {
    static final float MM = 72f / 25.4f;
    static final float PANEL_WIDTH = 85.6f * MM;
    static final float PANEL_HEIGHT = 54f * MM;
    static final float PADDING = 2.6f * MM;
    static final float COLUMN_GAP = 7f;
    static final float KEY_GAP = 3.5f;
    static final float BODY_WIDTH = PANEL_WIDTH - 2 * PADDING;
    static final float COLUMN_WIDTH = (BODY_WIDTH - COLUMN_GAP) / 2;

    static final int PANELS_ACROSS = 3;
    static final int PANELS_DOWN = 3;
    static final int PANELS_PER_SHEET = PANELS_ACROSS * PANELS_DOWN;

    /** No type of a card is smaller if it can be helped. */
    static final float READABLE = 7f;

    private static final float BODY_HEIGHT = PANEL_HEIGHT - 2 * PADDING;
    private static final float[] SIZES = {8f, 7.5f, 7f, 6.5f, 6f};
    /** How far down a panel a menu that is longer than a panel may still begin. */
    private static final float LATEST_START = 0.72f;
    private static final float LEADING = 1.2f;
    private static final float MAX_KEY_WIDTH = COLUMN_WIDTH * 0.3f;

    private static final Comparator<CardLayout> BEST = Comparator.comparingInt(CardLayout::sheets)
            .thenComparing(layout -> -Math.min(layout.size, READABLE))
            .thenComparingInt(CardLayout::pieceCount)
            .thenComparing(layout -> -layout.size);

    /** A menu in one of the sizes, its lines broken. */
    private static final class Menu {
        final String title;
        final float keyWidth;
        final List<CardColumns.Row> rows = new ArrayList<>();
        final float height;

        Menu(KeyMap.Section section, float size) throws IOException {
            float widest = CardFonts.width(CardFonts.BOLD, size, "00");
            for (KeyMap.Mapping mapping : section.mappings) {
                widest = Math.max(widest, CardFonts.width(CardFonts.BOLD, size, CardFonts.printable(mapping.keys)));
            }
            title = CardFonts.printable(section.name);
            keyWidth = Math.min(widest + size * 0.5f, MAX_KEY_WIDTH);
            for (KeyMap.Mapping mapping : section.mappings) {
                List<String> keys = CardFonts.wrap(
                        CardFonts.BOLD, size, CardFonts.printable(mapping.keys), keyWidth - size * 0.4f);
                List<String> task = CardFonts.wrap(CardFonts.REGULAR, size, CardFonts.printable(mapping.task),
                        COLUMN_WIDTH - keyWidth - KEY_GAP);
                rows.add(new CardColumns.Row(keys, task, size * LEADING, size * 0.32f));
            }
            height = CardColumns.balancedHeight(rows);
        }
    }

    /** A menu, or the part of one that stands on one panel, its top edge counted from the panel's. */
    static final class Piece {
        final String title;
        final float top;
        final float keyWidth;
        final List<List<CardColumns.Row>> columns;

        Piece(String title, float top, float keyWidth, List<CardColumns.Row> rows) {
            this.title = title;
            this.top = top;
            this.keyWidth = keyWidth;
            this.columns = CardColumns.balanced(rows);
        }
    }

    static final class Panel {
        final List<Piece> pieces = new ArrayList<>();
        /** Whether it begins in the midst of the menu with which the panel before it ends. */
        final boolean isContinuation;

        Panel(boolean isContinuation) {
            this.isContinuation = isContinuation;
        }
    }

    final float size;
    /** The cover is the first and has no pieces. */
    final List<Panel> panels = new ArrayList<>(List.of(new Panel(false)));
    private float top = BODY_HEIGHT;

    private CardLayout(float size) {
        this.size = size;
    }

    static CardLayout of(List<KeyMap.Section> sections) throws IOException, CardFailure {
        CardLayout best = null;
        for (float size : SIZES) {
            List<Menu> menus = new ArrayList<>();
            for (KeyMap.Section section : sections) {
                menus.add(new Menu(section, size));
            }
            CardLayout layout = new CardLayout(size);
            if (layout.addAll(menus) && (best == null || BEST.compare(layout, best) < 0)) {
                best = layout;
            }
        }
        if (best == null) {
            throw new CardFailure("The key map has a key or task that is too long for a panel of the card.");
        }
        return best;
    }

    int sheets() {
        return (panels.size() + PANELS_PER_SHEET - 1) / PANELS_PER_SHEET;
    }

    private int pieceCount() {
        return panels.stream().mapToInt(panel -> panel.pieces.size()).sum();
    }

    float lineHeight() {
        return size * LEADING;
    }

    float headingHeight() {
        return size * 1.65f;
    }

    /** From a piece's top edge to its first row. */
    float rowsTop() {
        return headingHeight() + size * 0.45f;
    }

    private boolean addAll(List<Menu> menus) {
        for (Menu menu : menus) {
            if (!add(menu)) {
                return false;
            }
        }
        return true;
    }

    /** Whether each row of the menu fits on a panel. */
    private boolean add(Menu menu) {
        if (menu.height > room() && (menu.height <= BODY_HEIGHT - rowsTop() || top > BODY_HEIGHT * LATEST_START)) {
            newPanel(false);
        }
        int next = 0;
        while (next < menu.rows.size()) {
            int taken = countForPiece(menu.rows.subList(next, menu.rows.size()), next == 0);
            if (taken > 0) {
                List<CardColumns.Row> rows = menu.rows.subList(next, next + taken);
                String title = next == 0 ? menu.title : menu.title + " (continued)";
                panels.get(panels.size() - 1).pieces.add(new Piece(title, top, menu.keyWidth, rows));
                top += rowsTop() + CardColumns.balancedHeight(rows) + size * 0.6f;
                next += taken;
            } else if (top == 0) {
                return false;
            }
            if (next < menu.rows.size()) {
                newPanel(next > 0);
            }
        }
        return true;
    }

    /**
     * How many of a menu's remaining rows the present panel takes. One row alone looks lost: none is
     * left for the next panel, and none begins a menu in what another left of this one.
     */
    private int countForPiece(List<CardColumns.Row> rest, boolean isBeginning) {
        int count = CardColumns.countThatFits(rest, room());
        if (rest.size() - count == 1 && count > (isBeginning ? 1 : 2)) {
            count--;
        }
        return isBeginning && top > 0 && count == 1 && rest.size() > 1 ? 0 : count;
    }

    private void newPanel(boolean isContinuation) {
        panels.add(new Panel(isContinuation));
        top = 0;
    }

    /** What is left for rows when another menu begins on the present panel. */
    private float room() {
        return BODY_HEIGHT - top - rowsTop();
    }
}
