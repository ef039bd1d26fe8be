#include "tools/demo/Texts.h"

using namespace Qt::StringLiterals;

namespace demo {
namespace {

const QStringList kSpring = {
    u"The first warm morning with the window open."_s,
    u"Rain until noon, then everything smelled of earth."_s,
    u"The plum tree behind the house has decided that it is spring."_s,
    u"Light until after seven now. I noticed it while washing up."_s,
    u"Wind from the west, and the laundry dry in an hour."_s,
};
const QStringList kSummer = {
    u"Too warm to cook."_s,
    u"A thunderstorm that kept its promise, at last."_s,
    u"Up at five, because that was the only cool hour."_s,
    u"Long evening, swifts over the roofs until it was dark."_s,
    u"The street was empty, as if everybody had left for the sea."_s,
};
const QStringList kAutumn = {
    u"Fog until eleven, and then a sky like glass."_s,
    u"I put the heating on, for one hour, and felt guilty."_s,
    u"The first evening with the lamp lit at dinner."_s,
    u"Leaves in the stairwell, carried in by everybody's shoes."_s,
    u"Cold hands on the bicycle. Time to look for the gloves."_s,
};
const QStringList kWinter = {
    u"Frost on the inside of the kitchen window."_s,
    u"Grey all day, the kind of grey that makes no effort."_s,
    u"A little snow, not enough to stay."_s,
    u"Dark when I left and dark when I came home."_s,
    u"Clear and very cold. The stars looked close."_s,
};

const QStringList kEvents = {
    u"I repaired the kitchen chair. It stands on all four legs again, which is more than I expected."_s,
    u"Mother called and told the story of the lost suitcase, with a new ending."_s,
    u"Walked home along the river instead of taking the tram. Forty minutes, and worth each one."_s,
    u"Read sixty pages and remember three sentences of them."_s,
    u"The neighbour's boy practised the same eight bars until dinner. By the end they were good."_s,
    u"Bread again. The crust was right this time; **less water, hotter oven**."_s,
    u"A long meeting about a short question."_s,
    u"Found the letter that I had been looking for since March, in the dictionary, under *S*."_s,
    u"Swam twenty lengths and thought about nothing for at least twelve of them."_s,
    u"Cleared out the shelf in the hall. Two bags to give away, one box that I could not decide about."_s,
    u"Anna came by with the children. We built a tower, and then another, because of what happened to the first."_s,
    u"Bought two tomato plants for the balcony, and then a third so that they would not be a pair."_s,
    u"The doctor says that the knee is fine and that I am fifty. Both are true."_s,
    u"Finished the translation. The last sentence took as long as the first page."_s,
    u"Lost my temper over a form, apologised to the clerk, and got the form."_s,
    u"Listened to the old recordings. Grandfather's voice is younger than mine is now."_s,
    u"Had soup with Tomas at the market. He is leaving the office in the summer and looks ten years younger for it."_s,
    u"Tried to draw the bridge. The bridge won."_s,
    u"Slept badly, worked slowly, and was in bed by nine."_s,
    u"The library has opened its reading room again. I sat at my old place by the radiator."_s,
};

const QStringList kClosings = {
    u"A small day, and a good one."_s,
    u"I should write such things down more often."_s,
    u"Nothing else. That is all right."_s,
    u"I want to remember how quiet it was afterwards."_s,
    u"Tomorrow, then."_s,
    u"It mattered less than I thought this morning."_s,
    u"I keep learning this one every few years."_s,
    u"Went to bed pleased with very little."_s,
    u"Note to the one who reads this next year: it passed."_s,
};

const QStringList kForms = {
    u"To do before Friday:\n\n- [x] call about the boiler\n- [x] return the ladder\n- [ ] the letter to the insurance\n- [ ] shoes to the cobbler"_s,
    u"### Soup that worked\n\n1. Two onions, slowly, twenty minutes.\n2. Carrots, one potato, a bay leaf.\n3. Lemon only at the end."_s,
    u"Copied from the book on the night table:\n\n> One does not step twice into the same street,\n> but the baker is the same."_s,
    u"Three good things:\n\n- the light on the stairs at four\n- a letter with a real stamp\n- nobody needed me between two and three"_s,
    u"Looked up the walk along the ridge again: [the map](https://example.org/ridge-walk). **Eleven kilometres**, two inns, one of them closed on Mondays."_s,
    u"### Books, so far\n\n- the one about lighthouses, twice\n- the short stories, half\n- ~~the novel everybody reads~~"_s,
    u"Measured for the shelf:\n\n- width `112 cm`\n- depth `28 cm`, no more, because of the door\n- [ ] ask about oak"_s,
};

const QStringList kAnniversaries = {
    u"### The first evening here\n\nThe boxes are in, the lamp is not. I eat bread and cheese on "
    u"the window sill, "
    u"and across the yard somebody waters plants as if nothing had happened.\n\n- [x] keys\n- [x] "
    u"kettle\n- [ ] "
    u"curtains\n- [ ] find out what the second switch does\n\nI was afraid of this day for weeks. "
    u"It was only a "
    u"day, with stairs in it."_s,
    u"Walked to the lake and back, **fourteen kilometres**, with the wind behind me for the wrong "
    u"half.\n\nAt the "
    u"jetty an old man was mending a net. I asked how long it takes. He said:\n\n> Until it "
    u"holds.\n\nI have thought "
    u"about that all evening, and about how many things I have put away before they "
    u"held.\n\nDinner: potatoes, "
    u"butter, the last of the dill."_s,
    u"A day with nothing planned in it, and I kept it that way.\n\nIn the morning I wrote to "
    u"Clara, four pages, by "
    u"hand. In the afternoon I put the photographs from the island in order and found the one with "
    u"all of us on the wall, squinting. Eleven years! We look surprised, as if the wall had just "
    u"been put there.\n\n"
    u"### For next year\n\n1. Write to Clara before I miss her this much.\n2. The path behind the "
    u"chapel, which was "
    u"[closed this time](https://example.org/island-paths).\n3. Fewer plans.\n\n*Later:* she "
    u"telephoned. The letter "
    u"is still on the table."_s,
};

}  // namespace

const Texts& englishTexts() {
    static const Texts texts{
        {kSpring, kSummer, kAutumn, kWinter}, kEvents, kClosings, kForms, kAnniversaries};
    return texts;
}

}  // namespace demo
