/** A reason why no card can be made, in words for whoever reads standard error. */
final class CardFailure extends Exception {
    private static final long serialVersionUID = 1L;

    CardFailure(String message) {
        super(message);
    }
}
