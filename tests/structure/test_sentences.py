"""No sentence of the program or its plugin goes unseen by the tests; see sentences.py."""
import sentences


def test_every_sentence_has_a_test_that_saw_it():
    assert [sentence for sentence, place in sentences.seen().items() if not place] == []


def test_the_sentences_are_found():
    found = sentences.sentences()
    assert len(found) > 40
    assert found["Plugin is on the site."] == "src/flows/install.cpp"
