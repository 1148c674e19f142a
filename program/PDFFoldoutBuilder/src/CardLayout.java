import java.io.IOException;
import java.util.ArrayList;
import java.util.List;

/**
 * Divides a key map among the panels of a card.
 *
 * <p>A menu that fits on one panel is never torn apart; a longer one begins wherever there is room
 * and goes on from panel to panel. The type is as large as lets everything stand on one sheet.
 */
final class CardLayout {
    static final float MM = 72f / 25.4f;
    static final float PANEL_WIDTH = 85.6f * MM;
    static final float PANEL_HEIGHT = 54f * MM;
    static final float PADDING = 2.6f * MM;
    static final float FOOT_HEIGHT = 7.5f;
    static final float COLUMN_GAP = 7f;
    static final float KEY_GAP = 3.5f;
    static final float BODY_WIDTH = PANEL_WIDTH - 2 * PADDING;
    static final float COLUMN_WIDTH = (BODY_WIDTH - COLUMN_GAP) / 2;

    static final int PANELS_ACROSS = 3;
    static final int PANELS_DOWN = 3;
    static final int PANELS_PER_SHEET = PANELS_ACROSS * PANELS_DOWN;

    private static final float BODY_HEIGHT = PANEL_HEIGHT - 2 * PADDING - FOOT_HEIGHT;
    private static final float[] SIZES = {8f, 7.5f, 7f, 6.5f, 6f};
    /** How far down a panel a menu that is longer than a panel may still begin. */
    private static final float LATEST_START = 0.72f;
    private static final float MAX_KEY_WIDTH = COLUMN_WIDTH * 0.3f;
    private static final String NO_KEYS = "No keys in this menu";

    /** One mapping, broken into the lines in which it is printed. */
    record Row(List<String> keyLines, List<String> taskLines, boolean isConditional, float height) {}

    /** A menu, or the part of one that stands on one panel, its top edge counted from the panel's. */
    record Piece(String title, float top, float keyWidth, List<List<Row>> columns) {
        boolean isConditional() {
            return columns.stream().flatMap(List::stream).anyMatch(Row::isConditional);
        }
    }

    record Panel(List<Piece> pieces) {}

    private final float size;
    private final List<Panel> panels = new ArrayList<>();
    private float top = BODY_HEIGHT;

    private CardLayout(float size) {
        this.size = size;
    }

    /** @param reserved how many panels of the first sheet are taken already */
    static CardLayout of(KeyMap map, int reserved) throws IOException, CardFailure {
        CardLayout layout = null;
        for (float size : SIZES) {
            layout = new CardLayout(size);
            boolean fits = layout.addAll(map);
            if (fits && reserved + layout.panels.size() <= PANELS_PER_SHEET) {
                return layout;
            }
            if (!fits) {
                layout = null;
            }
        }
        if (layout == null) {
            throw new CardFailure("The key map has a key or task that is too long for a panel of the card.");
        }
        return layout;
    }

    float size() {
        return size;
    }

    List<Panel> panels() {
        return panels;
    }

    float lineHeight() {
        return size * 1.2f;
    }

    float headingHeight() {
        return size * 1.65f;
    }

    private float rowGap() {
        return size * 0.32f;
    }

    /** From a piece's top edge to its first row. */
    float rowsTop() {
        return headingHeight() + size * 0.45f;
    }

    private boolean addAll(KeyMap map) throws IOException {
        for (KeyMap.Section section : map.sections()) {
            if (!add(section)) {
                return false;
            }
        }
        return true;
    }

    private boolean add(KeyMap.Section section) throws IOException {
        String title = CardFonts.printable(section.name());
        float keyWidth = keyWidth(section);
        List<Row> rows = rows(section, keyWidth);
        float whole = balancedHeight(rows);
        if (whole > room() && (whole <= BODY_HEIGHT - rowsTop() || top > BODY_HEIGHT * LATEST_START)) {
            newPanel();
        }
        int next = 0;
        while (next < rows.size()) {
            List<Row> rest = rows.subList(next, rows.size());
            List<List<Row>> columns = fill(rest, room());
            int taken = columns.get(0).size() + columns.get(1).size();
            if (taken > 0) {
                String shown = next == 0 ? title : title + " (continued)";
                panels.get(panels.size() - 1).pieces().add(new Piece(shown, top, keyWidth, columns));
                top += rowsTop() + Math.max(height(columns.get(0)), height(columns.get(1))) + size * 0.6f;
                next += taken;
            } else if (top == 0) {
                return false;
            }
            if (next < rows.size()) {
                newPanel();
            }
        }
        return true;
    }

    private void newPanel() {
        panels.add(new Panel(new ArrayList<>()));
        top = 0;
    }

    /** What is left for rows when another menu begins on the present panel. */
    private float room() {
        return panels.isEmpty() ? -1 : BODY_HEIGHT - top - rowsTop();
    }

    /** Two columns of equal height if all rows fit so, else both as full as they go. */
    private List<List<Row>> fill(List<Row> rows, float room) {
        if (balancedHeight(rows) <= room) {
            int split = bestSplit(rows);
            return List.of(rows.subList(0, split), rows.subList(split, rows.size()));
        }
        int left = countThatFits(rows, room);
        List<Row> behind = rows.subList(left, rows.size());
        return List.of(rows.subList(0, left), behind.subList(0, countThatFits(behind, room)));
    }

    private int countThatFits(List<Row> rows, float room) {
        int count = 0;
        while (count < rows.size() && height(rows.subList(0, count + 1)) <= room) {
            count++;
        }
        return count;
    }

    private float balancedHeight(List<Row> rows) {
        int split = bestSplit(rows);
        return Math.max(height(rows.subList(0, split)), height(rows.subList(split, rows.size())));
    }

    /** How many rows the left column takes so that the longer of the two is as short as can be. */
    private static int bestSplit(List<Row> rows) {
        float total = height(rows);
        float left = 0;
        int split = 0;
        while (split < rows.size() && left < total - left - rows.get(split).height() + 0.01f) {
            left += rows.get(split++).height();
        }
        return split;
    }

    private static float height(List<Row> rows) {
        float sum = 0;
        for (Row row : rows) {
            sum += row.height();
        }
        return sum;
    }

    private float keyWidth(KeyMap.Section section) throws IOException {
        float widest = CardFonts.width(CardFonts.BOLD, size, "00");
        for (KeyMap.Mapping mapping : section.mappings()) {
            widest = Math.max(widest, CardFonts.width(CardFonts.BOLD, size, CardFonts.printable(mapping.keys())));
        }
        return Math.min(widest + size * 0.5f, MAX_KEY_WIDTH);
    }

    private List<Row> rows(KeyMap.Section section, float keyWidth) throws IOException {
        List<Row> rows = new ArrayList<>();
        for (KeyMap.Mapping mapping : section.mappings()) {
            List<String> keys = CardFonts.wrap(
                    CardFonts.BOLD, size, CardFonts.printable(mapping.keys()), keyWidth - size * 0.4f);
            List<String> task = CardFonts.wrap(CardFonts.REGULAR, size, CardFonts.printable(mapping.task()),
                    COLUMN_WIDTH - keyWidth - KEY_GAP);
            rows.add(row(keys, task, mapping.isConditional()));
        }
        if (rows.isEmpty()) {
            rows.add(row(List.of(), List.of(NO_KEYS), false));
        }
        return rows;
    }

    private Row row(List<String> keys, List<String> task, boolean isConditional) {
        float height = Math.max(keys.size(), task.size()) * lineHeight() + rowGap();
        return new Row(keys, task, isConditional, height);
    }
}
