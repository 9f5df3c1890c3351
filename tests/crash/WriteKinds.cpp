#include "WriteKinds.h"

namespace killwrites {

namespace {

// Ends the start of Tierfall from the selector: the unload question answered Yes.
void leaveTierfall(Session& s) {
    s.push_back("answer Yes");
    s.push_back("click frmTierfall.cmdExit");
}

// A first start of the program and of Tierfall: the files a first start makes.
Session firstStart() {
    Session s{"click frmSelect.cmdTierfall"};
    leaveTierfall(s);
    s.push_back("close frmSelect");
    return s;
}

}  // namespace

std::vector<Kind> allKinds() {
    std::vector<Kind> kinds;
    const Session readSettings{"click frmSelect.cmdTierfall", "log"};

    {
        // Each leave writes what the options menu holds; the options cycle through 12
        // combinations, so the next version always differs from the last.
        Kind k{"settings", "Tierfall.Ini", {firstStart()}, {}, readSettings, ""};
        const char* colors[] = {"mnuYellow", "mnuRed",    "mnuBlue",
                                "mnuGreen",  "mnuPurple", "mnuBlack"};
        const char* decks[] = {"mnuPalm", "mnuMagic", "mnuNight", "mnuHot"};
        Session s;
        for (int i = 0; i < 12; ++i) {
            s.push_back("click frmSelect.cmdTierfall");
            s.push_back(std::string("click frmTierfall.") + colors[i % 6]);
            s.push_back(std::string("click frmTierfall.") + decks[i % 4]);
            s.push_back("click frmTierfall.mnuSounds");
            leaveTierfall(s);
        }
        k.script.push_back(s);
        kinds.push_back(k);
    }
    {
        // Fivestack's own file: each leave writes another time limit and back design.
        Session first{"click frmSelect.cmdFivestack", "answer Yes", "click frmFivestack.cmdQuit",
                      "close frmSelect"};
        Kind k{"fivestack", "Fivestack.Ini", {first}, {}, {"click frmSelect.cmdFivestack", "log"},
               ""};
        const char* times[] = {"mnu15", "mnu30", "mnu45", "mnu75", "mnu60"};
        const char* decks[] = {"mnuPalm", "mnuMagic", "mnuNight", "mnuHot"};
        Session s;
        for (int i = 0; i < 10; ++i) {
            s.push_back("click frmSelect.cmdFivestack");
            s.push_back(std::string("click frmFivestack.") + times[i % 5]);
            s.push_back(std::string("click frmFivestack.") + decks[i % 4]);
            s.push_back("answer Yes");
            s.push_back("click frmFivestack.cmdQuit");
        }
        k.script.push_back(s);
        kinds.push_back(k);
    }
    {
        // The selector writes it as the program closes, with what the submission dialog
        // took: one write per start of the program.
        Kind k{"user", "User.ini", {firstStart()}, {}, {"log"}, ""};
        for (int i = 1; i <= 4; ++i) {
            const std::string n = std::to_string(i);
            Session s{"click frmSelect.cmdTierfall",
                      "click frmTierfall.mnuViewHiScore",
                      "click frmHighScores.cmdSendScore",
                      "type frmComposeHighScore.txtName Ada Lind " + n,
                      "type frmComposeHighScore.txtHomeTown Harrowgate " + n,
                      "click frmComposeHighScore.cmdCancel",
                      "click frmHighScores.cmdDone"};
            leaveTierfall(s);
            s.push_back("close frmSelect");
            k.script.push_back(s);
        }
        kinds.push_back(k);
    }
    {
        // Each launch from the selector counts one more game of Tierfall.
        Kind k{"played", "Played.ini", {firstStart()}, {}, readSettings, ""};
        Session s;
        for (int i = 0; i < 16; ++i) {
            s.push_back("click frmSelect.cmdTierfall");
            leaveTierfall(s);
        }
        k.script.push_back(s);
        kinds.push_back(k);
    }
    {
        // Take Score twice ends a game on its time bonus alone; a bonus a point higher
        // each game puts every score at the top of the table, so every game over
        // rewrites it with a new row.
        Kind k{"table",
               "ES Tierfall Hi Score Table 11_90.Txt",
               {firstStart()},
               {},
               {"click frmSelect.cmdTierfall", "click frmTierfall.mnuViewHiScore",
                "click frmHighScores.cmdDone", "log"},
               ""};
        Session s{"click frmSelect.cmdTierfall"};
        for (int i = 1; i <= 12; ++i) {
            const std::string n = std::to_string(i);
            s.push_back("click frmTierfall.mnuScoring");
            s.push_back("type frmTierfallCustomScoring.txtBonus 5000000");
            s.push_back("type frmTierfallCustomScoring.txtTimeBonus " + std::to_string(1000 + i));
            s.push_back("click frmTierfallCustomScoring.cmdOK");
            s.push_back("click frmTierfall.cmdPlay");
            s.push_back("click frmTierfall.cmdTakeScore");
            s.push_back("click frmTierfall.cmdTakeScore");
            s.push_back("type frmHiScoreName.txtPlayerName Player " + n);
            s.push_back("click frmHiScoreName.cmdOK");
            s.push_back("click frmHighScores.cmdDone");
        }
        k.script.push_back(s);
        kinds.push_back(k);
    }
    {
        // A game ended at once and saved over the same file: each deal differs.
        auto playAndSave = [](Session& s, int i, bool overwrite) {
            s.push_back("click frmTierfall.cmdPlay");
            s.push_back("answer Yes");
            s.push_back("click frmTierfall.cmdPlay");
            s.push_back("click frmTierfall.mnuSave");
            s.push_back("type frmSave.txtGameName evening");
            s.push_back("type frmSave.txtUserName Ada Lind " + std::to_string(i));
            if (overwrite)
                s.push_back("answer Yes");
            s.push_back("click frmSave.cmdOK");
        };
        Session made{"click frmSelect.cmdTierfall"};
        playAndSave(made, 0, false);
        Kind k{"saved",
               "evening.tfl",
               {firstStart(), made},
               {},
               {"click frmSelect.cmdTierfall", "click frmTierfall.mnuOpen",
                "type frmOpen.txtGameName evening.tfl", "answer OK", "click frmOpen.cmdOK", "log"},
               "msgbox Saved Game Information | information | This game was saved by Ada Lind"};
        Session s{"click frmSelect.cmdTierfall"};
        for (int i = 1; i <= 12; ++i)
            playAndSave(s, i, true);
        k.script.push_back(s);
        kinds.push_back(k);
    }
    {
        // Lettermine writes the phrase file of each topic it read as its form closes: the
        // order it shuffled and the place it reached, one phrase further at each round.
        const Session round{"click frmSelect.cmdLettermine", "click frmLettermine.cmdPlay",
                            "answer Yes", "click frmLettermine.cmdExit"};
        // The first round chooses the topic, which Lettermine.Ini keeps from then on.
        Session first = round;
        first.insert(first.begin() + 1, "click frmLettermine.mnuPhrases");
        Kind k{"phrases",
               "LMP.Dat",
               {first},
               {},
               {"click frmSelect.cmdLettermine", "click frmLettermine.cmdPlay", "log"},
               "",
               {{"LMP.Dat",
                 "Better Late Than Never\r\nA Stitch In Time Saves Nine\r\nRock 'n' Roll "
                 "4-Ever!\r\nThe Early Bird Catches The Worm\r\nActions Speak Louder Than "
                 "Words\r\nA Penny Saved Is A Penny Earned\r\nEvery Cloud Has A Silver "
                 "Lining\r\nWhere There's Smoke There's Fire\r\n"}}};
        Session s;
        for (int i = 0; i < 12; ++i)
            s.insert(s.end(), round.begin(), round.end());
        k.script.push_back(s);
        kinds.push_back(k);
    }
    return kinds;
}

}  // namespace killwrites
