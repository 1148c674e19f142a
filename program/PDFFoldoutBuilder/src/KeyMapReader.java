import java.io.IOException;
import java.io.InputStream;
import java.nio.charset.Charset;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/**
 * Reads a key map file.
 *
 * <p>The file has the shape of XML, but nothing in it is escaped and a text may hold any character
 * of the code page. So it is read as what it is, a fixed sequence of tags with plain text between
 * them. There are no entities, no document types and no references to other files in it, and none
 * are followed.
 */
final class KeyMapReader {
    private static final Charset CODE_PAGE = Charset.forName("windows-1252");
    private static final String ROOT_END = "</ConversationKeyMap>";

    // Far above what an editor writes, far below what would hurt.
    private static final int MAX_BYTES = 1 << 20;
    private static final int MAX_NAME = 40;
    private static final int MAX_TEXT = 200;
    private static final int MAX_SECTIONS = 100;
    private static final int MAX_MAPPINGS = 1000;

    private final String text;
    private int position;
    private int mappingCount;

    private KeyMapReader(String text) {
        this.text = text;
    }

    static KeyMap read(Path file) throws IOException, CardFailure {
        if (!Files.isRegularFile(file)) {
            throw new CardFailure("The key map " + file + " cannot be found.");
        }
        byte[] bytes;
        try (InputStream stream = Files.newInputStream(file)) {
            bytes = stream.readNBytes(MAX_BYTES + 1);
        }
        if (bytes.length > MAX_BYTES) {
            throw new CardFailure("The key map " + file + " is larger than " + MAX_BYTES + " bytes.");
        }
        try {
            return new KeyMapReader(new String(bytes, CODE_PAGE)).document();
        } catch (CardFailure failure) {
            throw new CardFailure("The key map " + file + " cannot be used: " + failure.getMessage());
        }
    }

    private KeyMap document() throws CardFailure {
        Map<String, String> attributes = rootTag();
        List<KeyMap.Section> sections = new ArrayList<>();
        while (!accept(ROOT_END)) {
            // A menu that has no rows at all leaves its two closing lines behind, without a beginning.
            if (accept("</Mappings>") || accept("</KeyMapping>")) {
                continue;
            }
            expect("<KeyMapping>");
            if (sections.size() == MAX_SECTIONS) {
                throw failure("more than " + MAX_SECTIONS + " menus");
            }
            sections.add(section());
        }
        skipBlanks();
        if (position < text.length()) {
            throw failure("text behind " + ROOT_END);
        }
        return new KeyMap(
                attribute(attributes, "conversationName"),
                attribute(attributes, "product"),
                attribute(attributes, "version"),
                sections);
    }

    /** The root line, whose blanks around the equals signs may stand anyhow. */
    private Map<String, String> rootTag() throws CardFailure {
        expect("<ConversationKeyMap");
        Map<String, String> attributes = new LinkedHashMap<>();
        while (!accept(">")) {
            skipBlanks();
            int start = position;
            while (position < text.length() && Character.isLetter(text.charAt(position))) {
                position++;
            }
            String name = text.substring(start, position);
            if (name.isEmpty()) {
                throw unexpected("an attribute");
            }
            expect("=");
            expect("\"");
            attributes.putIfAbsent(name, textUpTo("\"", MAX_NAME));
        }
        return attributes;
    }

    private String attribute(Map<String, String> attributes, String name) throws CardFailure {
        String value = attributes.get(name);
        if (value == null) {
            throw new CardFailure("its first line has no " + name + ".");
        }
        return value;
    }

    private KeyMap.Section section() throws CardFailure {
        String name = element("MenuName", MAX_NAME);
        List<KeyMap.Mapping> mappings = new ArrayList<>();
        expect("<Mappings>");
        while (accept("<Mapping>")) {
            if (++mappingCount > MAX_MAPPINGS) {
                throw failure("more than " + MAX_MAPPINGS + " keys");
            }
            String keys = element("Keys", MAX_TEXT);
            mappings.add(new KeyMap.Mapping(keys, element("Task", MAX_TEXT)));
            expect("</Mapping>");
        }
        expect("</Mappings>");
        expect("</KeyMapping>");
        return new KeyMap.Section(name, mappings);
    }

    private String element(String name, int limit) throws CardFailure {
        expect("<" + name + ">");
        return textUpTo("</" + name + ">", limit);
    }

    /** Every text of the file stands on one line, which keeps a missing end from swallowing the rest. */
    private String textUpTo(String end, int limit) throws CardFailure {
        int stop = text.indexOf(end, position);
        int lineEnd = text.indexOf('\n', position);
        if (stop < 0 || (lineEnd >= 0 && lineEnd < stop)) {
            throw failure(end + " is missing");
        }
        if (stop - position > limit) {
            throw failure("a text of more than " + limit + " characters");
        }
        String value = text.substring(position, stop).trim();
        position = stop + end.length();
        return value;
    }

    private boolean accept(String token) {
        skipBlanks();
        if (!text.startsWith(token, position)) {
            return false;
        }
        position += token.length();
        return true;
    }

    private void expect(String token) throws CardFailure {
        if (!accept(token)) {
            throw unexpected(token);
        }
    }

    private void skipBlanks() {
        while (position < text.length() && " \t\r\n".indexOf(text.charAt(position)) >= 0) {
            position++;
        }
    }

    private CardFailure unexpected(String wanted) {
        return failure(position == text.length() ? "it ends too early" : wanted + " was expected");
    }

    private CardFailure failure(String what) {
        long line = 1 + text.substring(0, position).chars().filter(c -> c == '\n').count();
        return new CardFailure("line " + line + ": " + what + ".");
    }
}
