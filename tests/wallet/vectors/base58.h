// Base58 and Base58Check vectors that Bitcoin Core and the programs made from it publish (src/test/data/:
// base58_encode_decode.json, key_io_valid.json and key_io_invalid.json, the latter two as Litecoin Core has them).
#pragma once

struct Base58Vector {
    const char* hex;
    const char* text;
};

inline constexpr Base58Vector kBase58Vectors[] = {
    {"", ""},
    {"61", "2g"},
    {"626262", "a3gV"},
    {"636363", "aPEr"},
    {"73696d706c792061206c6f6e6720737472696e67", "2cFupjhnEsSn59qHXstmK2ffpLv2"},
    {"00eb15231dfceb60925886b67d065299925915aeb172c06647", "1NS17iag9jJgTHD1VXjvLCEnZuQ3rJDE9L"},
    {"516b6fcd0f", "ABnLTmg"},
    {"bf4f89001e670274dd", "3SEo3LWLoPntC"},
    {"572e4794", "3EFU7m"},
    {"ecac89cad93923c02321", "EJDM8drfXA6uyA"},
    {"10c8511e", "Rt5zm"},
    {"00000000000000000000", "1111111111"},
    {"000111d38e5fc9071ffcd20b4a763cc9ae4f252bb4e48fd66a835e252ada93ff480d6dd43dc62a641155a5",
     "123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz"},
    {"000102030405060708090a0b0c0d0e0f101112131415161718191a1b1c1d1e1f202122232425262728292a2b2c2d2e2f3031"
     "32333435363738393a3b3c3d3e3f404142434445464748494a4b4c4d4e4f505152535455565758595a5b5c5d5e5f60616263"
     "6465666768696a6b6c6d6e6f707172737475767778797a7b7c7d7e7f808182838485868788898a8b8c8d8e8f909192939495"
     "969798999a9b9c9d9e9fa0a1a2a3a4a5a6a7a8a9aaabacadaeafb0b1b2b3b4b5b6b7b8b9babbbcbdbebfc0c1c2c3c4c5c6c7"
     "c8c9cacbcccdcecfd0d1d2d3d4d5d6d7d8d9dadbdcdddedfe0e1e2e3e4e5e6e7e8e9eaebecedeeeff0f1f2f3f4f5f6f7f8f9"
     "fafbfcfdfeff",
     "1cWB5HCBdLjAuqGGReWE3R3CguuwSjw6RHn39s2yuDRTS5NsBgNiFpWgAnEx6VQi8csexkgYw3mdYrMHr8x9i7aEwP8kZ7vccXWq"
     "KDvGv3u1GxFKPuAkn8JCPPGDMf3vMMnbzm6Nh9zh1gcNsMvH3ZNLmP5fSG6DGbbi2tuwMWPthr4boWwCxf7ewSgNQeacyozhKDDQ"
     "Q1qL5fQFUW52QKUZDZ5fw3KXNQJMcNTcaB723LchjeKun7MuGW5qyCBZYzA1KjofN1gYBV3NqyhQJ3Ns746GNuf9N2pQPmHz4xpn"
     "SrrfCvy6TVVz5d4PdrjeshsWQwpZsZGzvbdAdN8MKV5QsBDY"},
};

// Right checksums, but version bytes of other networks or of other kinds of addresses.
inline constexpr const char* kAddressesOfOtherVersions[] = {
    "LT2KVaAy1ppRuxRgrS5RNU3vBsy7RibPeA", "MHrYRxAiMNBTku3eoDHwhA1LQGDjUStZW2", "M9dw1FAoWpHC6PcMzoCHhqQ9McvTyG5Ywj",
    "mwXn5Vhicdav8Av3KMokx4YNuHoGRKxtWs", "QXaUgLHkZcbJb2j5XgMYzY8cF9YM48Y81Z", "QNfyfXGXxfeaG8SQpnHxS2J27ysokKCtZL",
    "mpWvR79tSrA5xeziB6mjNYWdaVRwBpgnUP", "QgDNrG4nJpE4VV7PcFMFhkTgwAHWxWS7pj", "LbfVMz974gbbGFqXF7FZUpSBWSbwBHDwR5",
    "MWGEAUUZoN4r6puz8KsgnE9wNTQ8fGWCEy", "MNYP3h6XQQcVBohyVrxAtRGhbyvPpXzyFR", "mnJYjG654G354sX1xEBaPGvGCoe34M1Pqr",
    "QQjXG2nbVfxysmaEZQVL9TsS359WjDT5ux", "QjqYEtoPWjTVxZQFUWdWj6r48hM6i2ESc2", "mtJ7NFSGv2WuwsigXhQymzMhxFh9uANCTY",
    "QfS38XTvXmuNFeyS8orinxHkDkonMDS1ih", "LgUPnP2UZxmFBJb8FDgNd5JcU9b7CNfrw1", "MU2UAbDxiiirZuGTZ6nSaFajsXFkLHozcU",
};

// No address or key of any network.
inline constexpr const char* kInvalidAddresses[] = {
    "",
    "x",
    "dfbPb4pUb4pTX4UQYFUjKyiSF8CQgxugLS62GjwZypEoibsosn9Vb4KVCda1rRWmZmNiRrwvmCn",
    "9HNmZX4VS73qJEWzmNcmXbkQ9TFf6sUTCQ",
    "gjLg9jYHzW5ciXEDz9zWiotzYe2cct2PTtToqpoFgwo4EkCAaDDrofJawHSpRU8ki2bggowiBok",
    "SLrpY37XP4qJryx7fjPZMak4Lxzfo5WShx",
    "kTcGJ65MCfb8jXDWf1sYGEpCyA4kcP9BDk",
    "521Yh6VfYQu5PtUDwaFAvsKAwczLgviqYpgbSxRdRzpjtnmT6JmTUeqsATPFj17ABdvzwPv8uugf9",
    "cUBHNh9Q2nDG6rsPProgGCZJnjUMEMyHWqm6p9eHwQJDPdm5rYBE",
    "7V7qeUyYjXzGsWD7SJRAep6s7kcptC2irxWDgByP1vHNt2cTJGcCDqTH9WRYtkQgx6dYxCtXJwgMk",
    "tc1qqtcszl2x5dm89t8989ylwucwsnqq2pmxxv4wuw",
    "bt1p2c4wcwdszz8qhgg2anf8q4qh3wfvr007f8zjyfud0wneenz85upsfwevl6",
    "tltc13vj87tzu08d9277dqfzafda7snm796xrx3kyv2536km3m3ef7lk7q0yq8hg",
    "RLTC1RUCQRYUFY",
    "ltc10utujc7h82n098qam35qv4sm4kztue0lh04er7zf6lslcwfmhc92kym83guu06nrvl56g2ekm",
    "tltc1qh8tp3qqmtz474xju0rajr3uz8vw00j2r",
    "rltc1q2k5v9aryyn8pqg5dsjy0f8700tq2ph7q3mkcu573fjutlckyu7u3ysyapj",
    "ltc153m7rf",
    "tltc1qywr4l8fyce9u6lwsykq4uez3g8kjfwterfxtjs784m526tavu84qeslpvf",
    "RLTC1QLPJ9XAKFWDYNP49LZ67kvf6FSKWD0P494P5PLT",
    "ltc1qfflgggucfrs482us7q786eew4ryqta3vl2aspf",
    "tltc1q8wdx4az9f0lyvrpumqp74teu99vfay22etgulptz0u3zwl49wc6s2pktf0",
    "rltc1qwvcm8vv0z02rvsx40w37jqhwcsr2rzyy7ksnsq",
    "ltc1pdhzupjn6sdyalpqn2flajzeyh7qw7r68z6zqnky8ns07k2du90jsd76y75",
    "tltc1z8pp8yj2xsvf40fw42suw8fntrchs0pdc",
    "rltc1sp3lm8alrzckqhe6nk29xp2de7qwvhq5e7qe8fa",
    "pLrE7DTSJEqA3EY9pn9xqxGsQQq1ZodMq9",
    "ftPq56BTH4DpneHagKmzzoaFaNzKKtJzNnTw1HKUAHuKoHHANUTkSh8PW1ETaDJARc9B1PzwVok",
    "2MwUPLQvSc9iamSJ4bKEGM7gHBaZeP9LNxp",
    "DHTtS2VMFFKgjtNzvPBmhzkhxpVdQEX8CfEt8h72xDrn9A8LFzUbseFtVPbzAmTPysdDTcQM8iS",
    "2N1evLCwGTML3dbW9PRk8nEgGYNb3rxG5RtN",
    "T3zMzNuAAXou7nsh1ah6y1Mrj9DZ2Wgx5yoqiSsrxiQbfw57BHrz",
    "oEPMsv4V5qZKoUyfNeCz1Z87PzPohDwhvJDd4UKivg4PWSen16kAZokNyTveoNrzowQEXaxRi8J",
    "cU6LESh6ttsCfCf4xQXv3CrNY4JHWACNoJCDrbVaRj3WYpyUCGzV",
    "tc1q8s7jrus7u2qgdm895pyv30le3cprehalv9lnc3",
    "bt1paw9uw7srejsczdlfe28xwdyqzk8lrjw9x8jdqw6pr2pwd2v9ywusum6u0n",
    "tltc13vgu624uk8ft5ll4aa2mpawe8xj63dxzzyn73zv9920n3v9p4xlvs46fqn5",
    "rltc1rvgnh26gv",
    "ltc10wqhm0mq4dq3gcckz0vpa00k62awh67cdwymfu6jc2jttg8n8sdwjdy6hst25zf37fcneh0fh",
    "tltc1qnmrmqt9d459t7yed75t97w85rvhpm2lu",
    "rltc1qddrre03z0h5qcg5y4qcyhzh9jera7zue8uv4y5nttg44gtyy8gc3w0j0ra",
    "ltc1qc7c53klkh5hhutxursumtl4eevq03vhzq",
    "tltc1q8j0kqm4q2w34kval4px7yauhq02hzy5xqp8jazsvu9zj8ptzhf5qzd7fee",
    "rltc1q9yk0zwnmamlt09wz6yu3v03xwcfnZQ8Ae8tmyc",
    "ltc1qc243zefnc9kzmsw72nytw4542g9nhwlxepjl6l",
    "tltc1qve28jd595ssf2usq5rhw24ehsny2f4tg62emue3q9wm40t7hplmqlftk8j",
    "rltc1q7mqj6cpffp32z0vksng3z5fr9fvhtt9mrgxrj8",
    "ltc1pt9dz00jx8y7x8ylmwe8q0llyrzs32px96wgsm8znsnmj9cgs0ffszkcwyf",
    "tltc1zhf4exwjxy7gh08najmlq4qn37uhvrzsv",
    "rltc14aymck",
    "2J5Aw2ADD73uDiWjBygH9v9CUc4FoMCnpXmdA3ArF5eG2M3quPMZcVzL7D6FbijsGcsq6dohRrm5",
    "2CyfoCce6BLYfKyAjW6n7x1gie1VMWwnKuZdq4U2MnaYzqSg1NKs6i66DQnGPGzwv33UM5cJehsk",
    "A2oWG2iWYa3NvYJ5r8JcxYCcEeHDP7LGCSMWQFQePa5QuAYsfNHS",
    "928oyNBWu1x44NuMptnH95toXArxtJBXLsJVg4xBTJuf92Q3HHXy",
    "cTMLykLqdEAst53pvxkJ5urLdXAU4zqhwzAwnurEWowy9d36ABYs",
    "cS2qXYzEZkoTgxp3xKBAXFXEQ1TcD9LLoGTpvMSr45o2rfxu1SAj",
    "AyUHw9wePktAhQPe4CUfGD6iU6tP7zGUSUPjp4GkmUj3dqVPDFw4",
    "tc1q8e3cz8e6jxrylsvmc7ng595rvn2m74ka5nhmyz",
    "bt1pyaatm98c7wmepfv558k6vt9zhtls6rdggelh86wyahsgye3h7vyst22puy",
    "tltc1355kwhrv2gsc7fyfma88nxqqzs3mmlcetg29cpfrd39hp2xjd3jwsrz78uv",
    "rltc1r55jrpej6",
    "ltc1pdtjxt",
    "tltc1gut4t3",
    "rltc1qnv2uheg45ns07mv6f0h82xz48xzahaemlvxczexnl74jglwvetqp73s7wn",
    "ltc1q0susza3qwj6lyp7d2q6g258vrgqw4afzt",
    "tltc1qsv7l20xzequp2hvtpmyc0nw6mmefyd0zj4a27y0jgkr2mcypfnss4fc7ky",
    "rltc1qu8qwtg4kx886ex2frzcp4v9lk9V440cd75ch47",
    "LTC1Q3ME3JU4NWKE72UUETHLKLZMWQAVTDG4AG8FXSK",
    "tltc1qc5d8gx5zm4vwufpp8galregpckfx52jfwyxtpng8pamd37g0pv3svfvnu4",
    "RLTC1QR29H2QPX85CF7PCHDLWU8L7J4NZ2TW5LA5FFZM",
};
