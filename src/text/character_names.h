// SPDX-License-Identifier: MIT
// The names of character references; tools/character-names writes this file.
#ifndef PAGESLICE_TEXT_CHARACTER_NAMES_H
#define PAGESLICE_TEXT_CHARACTER_NAMES_H

#include <cstddef>
#include <cstdint>

namespace pageslice::character_names {

// clang-format off
constexpr std::size_t COUNT = 2125;
constexpr std::size_t LONGEST = 31;
// Names that count without ';' are no longer than this.
constexpr std::size_t LONGEST_OPEN = 6;

// By slot; after each a space, or a '!' where the name counts without ';' too.
constexpr char NAMES[] =
    "ntriangleleft parsim LeftTriangleBar ssmile varsubsetneq utri Auml!nwArr ncong topfork bsime frac25 ma"
    "pstodown gtrarr Pi hslash bumpeq gamma HARDcy nLtv lbrkslu rcedil expectation ocirc!NegativeThickSpace"
    " nrtri prnap incare plusacir NotGreaterSlantEqual sfr rdquo NotLeftTriangle Ascr pm lopar kappa center"
    "dot aopf NotSubset Cap curarr nlt uogon minusdu mfr Darr lhblk smile DiacriticalTilde Amacr euml!Equal"
    "Tilde xsqcup plusdu map mDDot divideontimes block sscr cularrp Sum simeq imath RightUpVector larrpl Ze"
    "roWidthSpace smte Hstrok Xscr Odblac Sscr vsubne eqslantgtr lsqb Hscr raquo!searrow horbar nparallel d"
    "iamondsuit gnap beth Wedge DoubleLeftArrow eng wreath boxuL Mu ecy CircleMinus Cdot RightArrowLeftArro"
    "w RightUpVectorBar supset fflig NotLess rpargt iecy wedbar UpperRightArrow curvearrowright nbsp!order "
    "period bfr tdot rfr gvnE UpTee nspar lAtail UpArrowBar drcrop checkmark Implies RightDownTeeVector ugr"
    "ave!cudarrl frac12!downarrow vnsup lacute Ufr DJcy vdash dbkarow NotLessLess uHar prime omicron NotLes"
    "sSlantEqual SquareUnion bigsqcup Diamond sext angmsdaf ApplyFunction straightphi supsub Downarrow simg"
    " Popf lbrack CloseCurlyDoubleQuote perp lpar supsim yicy looparrowright langle gtrless lmoustache Doub"
    "leRightTee tint xopf sect!ngtr doteq lurdshar ddotseq barwed nsub lagran eqsim boxH apid topbot circle"
    "arrowleft NotTilde zeta xi aleph lesseqgtr isinv Zfr thinsp uscr cupcap NotPrecedes rfloor lowast ntil"
    "de!xscr nvlt Longleftarrow middot!xvee LeftUpTeeVector lcy rdldhar subsetneq amacr lsquo nsqsube angza"
    "rr Efr Sqrt ecir isins popf Hopf Precedes nsup ropar Uacute!iquest!Sigma and blacktriangleleft downdow"
    "narrows ddagger squarf parsl frac16 mcomma iota Gdot kcedil phone OverParenthesis nprcue wscr lAarr sh"
    "y!mp Verbar OverBrace lessapprox gfr Wscr Leftarrow ncy NotGreaterLess capand minus prnsim gtrdot exis"
    "t laquo!uparrow Dcaron ouml!therefore rarrhk nshortmid square twoheadleftarrow NotNestedLessLess caret"
    " hellip Cross LessTilde tscy nprec DownLeftTeeVector Vopf subsub les triangleright squf eqslantless ca"
    "cute DoubleContourIntegral gtlPar LowerLeftArrow boxDl planckh angmsdac NotSucceeds ell rarrbfs Lstrok"
    " DoubleLeftRightArrow ntrianglerighteq topcir imped ldrushar sqsupset aring!NotSucceedsEqual lesseqqgt"
    "r boxh Intersection Uarr lvertneqq notnivc ncaron VerticalTilde dfisht rarrpl twixt lesssim Scedil mop"
    "f subdot NotLessGreater HumpDownHump gEl rsquor roang wcirc ncup Topf loz lsim RightArrowBar succnsim "
    "DoubleLeftTee udblac nleq suphsol vzigzag marker uring varpropto NegativeThinSpace IEcy prop Dcy lessg"
    "tr looparrowleft telrec lnap curlyvee midcir nvHarr tcy bigcap boxDL mho angmsdab mnplus nwarr CircleT"
    "imes boxUL gscr Yopf Ocirc!star toea upuparrows LeftTriangleEqual Gfr nvrArr subsup range Union ll Rig"
    "htDownVectorBar Kcedil oslash!tilde frac56 Zscr ReverseUpEquilibrium hookleftarrow boxdL Jfr ii rightr"
    "ightarrows Yuml andslope lrarr lsimg InvisibleComma DotDot ETH!Jcy lArr NotLeftTriangleEqual NestedLes"
    "sLess bigcup utilde rhov lnsim odblac imacr congdot NotNestedGreaterGreater nmid DoubleVerticalBar sup"
    "ne xotime TildeEqual DD lotimes ContourIntegral dotminus frac14!Del laemptyv dharr ijlig emsp13 jcirc "
    "colon lesdotor gesdot ldca realpart eDDot DZcy rlm clubs scaron xlArr Iota COPY!Wcirc Iacute!nGt Empty"
    "SmallSquare complexes frac34!otimesas shortmid numero Rarr ubrcy smt nopf hercon qfr ohbar YIcy Vfr ss"
    "etmn kcy DiacriticalAcute NotGreaterEqual acd vBarv Vvdash Because numsp Scaron cong blacklozenge sube"
    " vfr ltlarr plusdo oelig frac23 ges ccaron NewLine bigcirc lt!Int sung rtrif NotDoubleVerticalBar leqq"
    " And boxUr npar Leftrightarrow GreaterFullEqual deg!zdot Prime gnapprox harrw nsimeq njcy sqcups gnsim"
    " umacr intcal sup2!Egrave!Iopf boxDR Xopf smallsetminus DownLeftVectorBar NotSquareSupersetEqual caps "
    "diamond vnsub scnap nsupset isinE boxUl nLt eth!bumpE DoubleLongRightArrow ograve!NotSucceedsSlantEqua"
    "l sigma subE die dlcorn npolint VerticalSeparator bcong le xlarr orderof CloseCurlyQuote larrhk scap h"
    "earts quot!eDot Ofr isin Pcy Dashv fork doteqdot Ycirc scnsim imagpart weierp jukcy subsetneqq lltri H"
    "ilbertSpace succeq supseteqq AElig!thorn!rbbrk Rscr lharul sqsubseteq ohm UnderParenthesis nsccue pfr "
    "sqcap varpi angle rcaron Mscr heartsuit curlyeqsucc NotRightTriangle copysr zscr bsolhsub easter eqcol"
    "on chcy bump bdquo nldr NotSquareSubsetEqual notniva lowbar ecolon boxuR risingdotseq esim dotplus Ove"
    "rBar nvsim acute!phi leftrightarrows boxV csub leftharpoonup wp varsupsetneqq erarr frac35 Dstrok nGg "
    "GJcy RightArrow nwnear fpartint brvbar!Barwed lfloor supe neArr curlyeqprec Gbreve NotEqual gopf xutri"
    " ofr circledast late Dscr triangleleft between alefsym Sopf iscr nsime el precnsim Vert triangleq NotR"
    "ightTriangleBar rmoust tritime iocy DownTee Xi varnothing DownRightVectorBar copy!Bscr plus phmmat oop"
    "f supplus NotHumpEqual gesdoto NotRightTriangleEqual Otilde!gt!softcy ruluhar gesdotol GreaterGreater "
    "ldquo lnE complement ltrie nltri ReverseEquilibrium Iuml!nvinfin NotLeftTriangleBar aacute!emptyset SO"
    "FTcy Kopf PrecedesSlantEqual pointint profline nles ltcir fjlig TripleDot Lang dlcrop LessEqualGreater"
    " swarhk cups ncongdot tosa downharpoonleft simne odot nVdash ubreve supE circ sigmav plusmn!boxhU Righ"
    "tUpDownVector Upsi mldr pre Therefore omid GreaterSlantEqual sqsup rsquo Iscr yscr dd longrightarrow D"
    "ot uacute!times!lthree cuwed real nsc cross Fcy Nscr ominus forall lneq supmult nrtrie Dagger swArr ns"
    "upe SmallCircle LeftDownVectorBar rBarr eta gsiml harr dArr Ugrave!Ncaron DownArrowUpArrow orv igrave!"
    "KJcy caron swarrow ngsim DownLeftRightVector zcy vopf ShortDownArrow odash rx Sc thksim profsurf boxdr"
    " olt notinvc Afr Ncedil prE bigtriangledown nleftarrow boxhD Eogon otilde!zacute angst shortparallel x"
    "odot ccaps plusb angmsdad ne Qopf nesear Alpha fscr sqcup pr NotSupersetEqual nless bowtie boxHD Right"
    "Ceiling nsubE sum tbrk lharu ldrdhar timesb diam gescc NotVerticalBar gacute female thicksim VerticalB"
    "ar vee hamilt ltrPar LeftAngleBracket Ecaron blank ntriangleright bnot nsce natural vscr scirc rbrke C"
    "hi elinters nltrie orslope Atilde!dscy DScy rarrc boxdR SHcy cirscir div lscr lobrk ogt gjcy vellip Uo"
    "gon minusd Omicron Gcedil ocir racute cuesc Icirc!swnwar leftrightsquigarrow RightTriangleEqual Succee"
    "dsTilde duhar SuchThat DoubleRightArrow xhArr rsqb Tilde starf Cconint boxvR rhard gtrsim nedot utdot "
    "lcaron Umacr nesim DoubleLongLeftRightArrow rceil cemptyv yucy rarr simrarr agrave!prec blk12 boxbox h"
    "oarr zwj longleftarrow hardcy lnapprox Pfr Rightarrow thetasym nvle SquareSubset oS PrecedesEqual rAta"
    "il UnderBrace bigstar LessFullEqual lesdot suplarr vartheta LongLeftRightArrow ucirc!ShortRightArrow n"
    "u blacktriangledown verbar nabla rtimes ltrif realine macr!UpDownArrow vartriangleleft subseteq NotGre"
    "ater bigotimes uwangle int DotEqual lg Xfr scy RightVector edot commat rarrb Scy hybull niv ensp HumpE"
    "qual DoubleUpArrow lozf asymp ccupssm colone supsetneqq orarr Rsh boxvH straightepsilon lrhar NotSquar"
    "eSuperset MediumSpace sstarf Abreve DoubleLongLeftArrow lstrok ang quatint icirc!CounterClockwiseConto"
    "urIntegral afr dfr zcaron Psi boxUR bemptyv blk34 swarr malt lvnE trade Phi questeq qprime Bernoullis "
    "lap ThinSpace Lt Yacute!gesl rarrap andd Racute rnmid Assign gammad rtri filig UnionPlus oacute!pcy ap"
    "proxeq LessLess icy Supset intprod LowerRightArrow SupersetEqual Jscr nvdash raemptyv cirfnint OpenCur"
    "lyQuote jsercy LeftTriangle LeftRightVector ZHcy LeftDownVector qopf multimap equals boxdl csupe abrev"
    "e larrb semi sccue seArr bne els plussim nlsim Longleftrightarrow ordf!TSHcy rArr timesd Pr geq chi ra"
    "rrtl top kjcy iiota demptyv iacute!vltri Mfr coprod nacute integers Ubreve boxur Ocy Cscr LJcy fcy two"
    "headrightarrow vrtri Aring!bullet andv rightleftharpoons Idot emsp hbar Lleftarrow vBar ndash Sub in i"
    "iint ogon varr DoubleDot oscr plustwo angmsdag circlearrowright Gg Vscr reals natur longmapsto nsupset"
    "eq iinfin sbquo THORN!solb triangledown boxHu Nu gcirc rharu rightleftarrows Re hfr Hacek rsh Aogon ho"
    "okrightarrow ofcir GreaterLess sce DiacriticalDoubleAcute Lcaron bscr rarrfs larrbfs lE NegativeMedium"
    "Space nsube Eta loang smtes Or scnE UpEquilibrium pound!mlcp clubsuit iprod HorizontalLine supdot NotS"
    "ucceedsTilde Tscr bopf cuvee rharul bbrk jscr siml nbumpe urcrop gesles boxvL dzigrarr fopf ccedil!suc"
    "c aogon scedil curlywedge veeeq larrtl gsime TScy Bfr vDash cylcty RightTriangle Yscr Zcaron rang Eopf"
    " VeryThinSpace ascr backsim bigodot notnivb midast ordm!ni otimes ImaginaryI epsi male precapprox Igra"
    "ve!Rcy Fscr ExponentialE cirE nrightarrow equest circledS DDotrahd mapstoup Star succneqq cularr notin"
    "E varsubsetneqq sfrown daleth sdote mu bkarow RightVectorBar NotGreaterTilde SHCHcy lambda nis Zopf ra"
    "ngle Poincareplane cupbrcap CHcy UnderBar larrfs tprime quest Aopf robrk xharr Vcy uplus Uring Differe"
    "ntialD emacr quaternions permil rbrkslu nvgt spades Gopf acirc!NotSuperset zopf cdot Ecy NotTildeTilde"
    " Element drbkarow empty Oopf Kcy Tcaron RBarr ShortLeftArrow par supseteq PlusMinus UpArrowDownArrow r"
    "ing cscr VerticalLine upsi TildeTilde Rrightarrow VDash sacute ggg slarr ropf Theta NotTildeEqual nlAr"
    "r NotEqualTilde ycy NotPrecedesEqual mscr Coproduct rbarr KHcy ratio npreceq ShortUpArrow lsime leg Hc"
    "irc iopf NoBreak NotLessEqual imagline Larr gla suphsub lgE frasl Jsercy ac CirclePlus blacktriangle a"
    "pos jmath gtcir eg IJlig micro!eogon boxvr nequiv yacute!lbarr nparsl af boxVR egs subsim xmap bsim gt"
    "quest YAcy nsucceq nisd kfr Lopf topf leftrightarrow dscr napid zhcy bigtriangleup cap cire rfisht geq"
    "slant MinusPlus CupCap CapitalDifferentialD supdsub elsdot approx Dopf Wopf Tab lang loplus ntgl LeftD"
    "oubleBracket SquareSuperset image rlarr rightharpoondown Esim LT!cwint primes Gt boxDr nleqq vArr UpAr"
    "row scpolint CircleDot rationals backcong psi zwnj jopf naturals gE Bcy ffr gtcc lbrace capcap lrm rar"
    "rlp yen!Dfr DownRightTeeVector jfr rect bottom barvee ulcorner yopf gbreve RightUpTeeVector xrarr Rang"
    " ge inodot ifr OElig LeftFloor eparsl rcy iexcl!dot pluscir Vdash varsupsetneq ncedil dwangle nwarhk b"
    "oxhu andand iukcy Uuml!nLl Product Vbar larrsim SucceedsEqual nVDash sqcaps dblac yuml!aelig!curarrm u"
    "rcorner dzcy zeetrf OverBracket ulcorn blk14 prcue udarr ycirc Vee ngeqq qscr nrArr biguplus Updownarr"
    "ow disin Ccaron Mopf cirmid Zcy DiacriticalDot RightTeeVector larr IOcy upsih Jopf Subset LessSlantEqu"
    "al nvltrie olcir loarr conint uml!omacr notin ccirc rightharpoonup maltese Utilde minusb gap Zeta Nfr "
    "Nacute DoubleUpDownArrow smeparsl Iogon Im rscr bprime bsolb ntlg hkswarow NotGreaterGreater RightFloo"
    "r nexists glE kgreen circledR Kscr sdot xnis nrarr jcy fltns lrtri latail part escr sigmaf llhard nvap"
    " LeftTee rdsh rppolint oplus triangle gsim ffilig Agrave!rthree lmidot dollar djcy ngeqslant Breve awi"
    "nt Oslash!tcaron leq imof nLeftarrow cir RuleDelayed csube shcy utrif yfr Rfr mapstoleft esdot angrtvb"
    " dtdot Kappa nsubset ord pluse Equilibrium bigoplus nscr dHar piv dcy exponentiale eacute!rightthreeti"
    "mes para!doublebarwedge cupor vert wfr frac78 xcirc geqq scE subplus submult LeftTeeVector Omacr hairs"
    "p lat boxhd ThickSpace Lmidot rcub tstrok xoplus nLeftrightarrow DownArrowBar LeftRightArrow Icy trian"
    "glelefteq nsupE Sacute LeftVector frac13 Rcaron Rho NotLessTilde NotCupCap bepsi lBarr check xcup eplu"
    "s divide!Kfr trpezium leqslant Mcy dotsquare rpar spadesuit lates eopf Lcedil ClockwiseContourIntegral"
    " sdotb hksearow Omega darr equivDD Gcy leftharpoondown Ll ast bull vangrt nsupseteqq Square Superset b"
    "cy epsiv uArr lcedil upsilon acy rtrie oror Euml!Tau ap Lacute varrho vprop boxul sime cudarrr Ucy dig"
    "amma pi nang nharr angrtvbd uharl NotSubsetEqual GreaterEqualLess UpTeeArrow npre sqsube varkappa Righ"
    "tTeeArrow nwarrow phiv curren!isinsv rightarrow LeftUpVector Rarrtl vsupne seswar lesges boxHd comp If"
    "r Uparrow cfr wedgeq Acirc!Cup ultri nrarrw boxVr SquareSupersetEqual frac45 gtrapprox dash simgE Cent"
    "erDot ntrianglelefteq SubsetEqual Sup nexist leftthreetimes copf succcurlyeq egrave!Tcy itilde epar Uc"
    "irc!reg!hscr planck DoubleDownArrow notindot QUOT!gnE nvrtrie eqvparsl rtriltri shchcy circleddash wr "
    "Tstrok theta blacktriangleright efDot kopf upharpoonright hstrok mapsto llarr Uscr sopf vsubnE Map rHa"
    "r rsaquo langd updownarrow gne hcirc nshortparallel frac18 npr UpperLeftArrow Hfr Rcedil DownArrow gve"
    "rtneqq Not Uopf NegativeVeryThinSpace amalg zigrarr angsph SquareSubsetEqual lHar Ubrcy intlarhk kappa"
    "v preccurlyeq urtri ngeq not!gneqq GreaterTilde dtrif LongLeftArrow vartriangleright ddarr gtdot divon"
    "x xfr Pscr prnE angrt nleqslant Bumpeq boxvh RightTriangleBar prap backprime Colone supsetneq oint rdc"
    "a gcy LessGreater Qscr Sfr nhpar iiiint lsaquo khcy Cedilla lne rightarrowtail frac15 iogon opar cupdo"
    "t oast sqsubset sc euro circeq origof nlarr Qfr dcaron nRightarrow napos rbrace ngE nearrow race nleft"
    "rightarrow leftleftarrows solbar flat capbrcup ltdot ee sol Succeeds LeftArrowBar veebar ucy Ropf angm"
    "sd drcorn lfisht nlE Jukcy bbrktbrk timesbar Fouriertrf sqsupseteq notinvb LeftUpVectorBar frac38 zfr "
    "rAarr lmoust NotCongruent FilledVerySmallSquare Jcirc Equal ncap NestedGreaterGreater ltimes napprox N"
    "Jcy emsp14 Eacute!sqsub NonBreakingSpace cup profalar it nvlArr Proportion Lcy Ccedil!glj Tfr boxVL su"
    "ccsim frac58 DownLeftVector sim gg xrArr ufr gneq Fopf FilledSmallSquare Ntilde!boxHU egsdot simdot ra"
    "rrw Gscr ldquor uopf ovbar strns pitchfork lbrksld tshcy xcap ulcrop thkap Edot beta Ncy pscr Integral"
    " InvisibleTimes lceil blacksquare succnapprox smid gtreqless boxVH UnderBracket xdtri Otimes succappro"
    "x parallel supsup tscr ffllig nsqsupe yacy boxtimes iuml!vcy gel lhard ecaron mid bigwedge olarr efr q"
    "int measuredangle boxvl llcorner rrarr lbrke models half Imacr ldsh nsmid precsim LeftArrow nvDash Emp"
    "tyVerySmallSquare precnapprox Colon omega circledcirc num xuplus nfr RightDownVector duarr fnof there4"
    " TRADE GT!Conint tridot subedot vsupnE forkv Epsilon apacir boxminus larrlp plankv Ffr acE dsol ljcy n"
    "vge rho Cfr Mellintrf squ roarr compfn emptyv epsilon rmoustache sup Udblac rlhar cwconint capdot osol"
    " prurel lrcorner Ouml!frown odiv trisb ForAll Wfr boxplus urcorn supnE Ecirc!scsim homtht searhk NotTi"
    "ldeFullEqual PartialD Yfr nle sup3!lessdot amp!Proportional nearhk Congruent lEg ratail Lscr excl ape "
    "nearr varepsilon DownRightVector SquareIntersection ltri nrarrc uarr npart Aacute!gtreqqless NotGreate"
    "rFullEqual leftarrowtail Gammad mumap lescc mstpos bot delta grave NotPrecedesSlantEqual RightAngleBra"
    "cket alpha RightDoubleBracket sqsupe Itilde Ccirc uuml!leftrightharpoons prod Barv cupcup coloneq ic a"
    "ngmsdah Laplacetrf DiacriticalGrave varphi percnt RightTee bnequiv wedge Iukcy isindot triplus nsim wo"
    "pf rbrksld apE GreaterEqual Hat OpenCurlyDoubleQuote ngt preceq lesdoto Nopf LeftDownTeeVector barwedg"
    "e bumpe LeftUpDownVector cuepr subrarr erDot infin Zdot subset LongRightArrow NotHumpDownHump target e"
    "quiv nsucc dstrok angmsdaa Lambda Longrightarrow bigvee thetav gimel ltquest nsubseteq AMP!fallingdots"
    "eq Copf dopf simplus uharr lesg Cacute comma bNot srarr Oacute!udhar rdquor asympeq lopf Escr Precedes"
    "Tilde nap SucceedsSlantEqual uhblk Oscr gdot setminus REG!nhArr supedot luruhar pertenk becaus Acy tri"
    "e nge lparlt thickapprox LeftCeiling tcedil LeftVectorBar uuarr YUcy dagger setmn NotExists smashp tau"
    " Emacr hArr rbrack propto TildeFullEqual upharpoonleft notni because rightsquigarrow Delta Ycy DownBre"
    "ve ufisht Ograve!ccups backsimeq Exists ecirc!boxVl prsim dtri capcup bsol Upsilon harrcir Uarrocir Be"
    "ta curvearrowleft szlig!cent!Backslash lozenge Tcedil nGtv lbbrk precneqq infintie awconint nsubseteqq"
    " subnE simlE Bopf NotSquareSubset sup1!NotReverseElement Lsh roplus ltcc nbump Vdashl LeftArrowRightAr"
    "row hyphen DownTeeArrow searr lsquor gl Scirc cedil!ENG olcross LeftTeeArrow bsemi mdash lrhard auml!s"
    "ubseteqq varsigma Gamma napE kscr lneqq atilde!leftarrow Lfr Cayleys boxVh diams trianglerighteq ocy b"
    "ernou puncsp Zacute longleftrightarrow backepsilon lcub ange eqcirc tfr mcy ctdot ReverseElement dharl"
    " downharpoonright angmsdae radic crarr operp sharp nges iff boxv or lfr rangd fllig hopf spar intercal"
    " Gcirc lsh dashv rarrsim triminus csup sub subne rotimes RoundImplies breve odsold notinva xwedge olin"
    "e NotElement ";

// By slot: the character, or from FIRST_SPECIAL on an index into SPECIAL.
constexpr std::uint16_t VALUES[COUNT] = {
    8938, 10995, 10703, 8995, 55296, 9653, 196, 8662, 8775, 10970, 8909, 8534, 8615, 10616, 928, 8463, 8783,
    947, 1066, 55297, 10637, 343, 8496, 244, 8203, 8939, 10937, 8453, 10787, 55298, 55299, 8221, 8938,
    55300, 177, 10629, 954, 183, 55301, 55302, 8914, 8631, 8814, 371, 10794, 55303, 8609, 9604, 8995, 732,
    256, 235, 8770, 10758, 10789, 8614, 8762, 8903, 9608, 55304, 10557, 8721, 8771, 305, 8638, 10553, 8203,
    10924, 294, 55305, 336, 55306, 55296, 10902, 91, 8459, 187, 8600, 8213, 8742, 9830, 10890, 8502, 8896,
    8656, 331, 8768, 9563, 924, 1101, 8854, 266, 8644, 10580, 8835, 55307, 8814, 10644, 1077, 10847, 8599,
    8631, 160, 8500, 46, 55308, 8411, 55309, 55310, 8869, 8742, 10523, 10514, 8972, 10003, 8658, 10589, 249,
    10552, 189, 8595, 55311, 314, 55312, 1026, 8866, 10511, 55297, 10595, 8242, 959, 55313, 8852, 10758,
    8900, 10038, 10669, 8289, 981, 10964, 8659, 10910, 8473, 91, 8221, 8869, 40, 10952, 1111, 8620, 10216,
    8823, 9136, 8872, 8749, 55314, 167, 8815, 8784, 10570, 10871, 8965, 8836, 8466, 8770, 9552, 8779, 9014,
    8634, 8769, 950, 958, 8501, 8922, 8712, 8488, 8201, 55315, 10822, 8832, 8971, 8727, 241, 55316, 55317,
    10232, 183, 8897, 10592, 1083, 10601, 8842, 257, 8216, 8930, 9084, 55318, 8730, 8790, 8948, 55319, 8461,
    8826, 8837, 10630, 218, 191, 931, 8743, 9666, 8650, 8225, 9642, 11005, 8537, 10793, 953, 288, 311, 9742,
    9180, 8928, 55320, 8666, 173, 8723, 8214, 9182, 10885, 55321, 55322, 8656, 1085, 8825, 10820, 8722,
    8936, 8919, 8707, 171, 8593, 270, 246, 8756, 8618, 8740, 9633, 8606, 55323, 8257, 8230, 10799, 8818,
    1094, 8832, 10590, 55324, 10965, 10877, 9657, 9642, 10901, 263, 8751, 10645, 8601, 9558, 8462, 10666,
    8833, 8467, 10528, 321, 8660, 8941, 10993, 437, 10571, 8848, 229, 55325, 10891, 9472, 8898, 8607, 55326,
    8957, 328, 8768, 10623, 10565, 8812, 8818, 350, 55327, 10941, 8824, 8782, 10892, 8217, 10221, 373,
    10818, 55328, 9674, 8818, 8677, 8937, 10980, 369, 8816, 10185, 10650, 9646, 367, 8733, 8203, 1045, 8733,
    1044, 8822, 8619, 8981, 10889, 8910, 10992, 10500, 1090, 8898, 9559, 8487, 10665, 8723, 8598, 8855,
    9565, 8458, 55329, 212, 9734, 10536, 8648, 8884, 55330, 10499, 10963, 10661, 8899, 8810, 10581, 310,
    248, 732, 8538, 55331, 10607, 8617, 9557, 55332, 8520, 8649, 376, 10840, 8646, 10895, 8291, 8412, 208,
    1049, 8656, 8940, 8810, 8899, 361, 1009, 8934, 337, 299, 10861, 55333, 8740, 8741, 8843, 10754, 8771,
    8517, 10804, 8750, 8760, 188, 8711, 10676, 8642, 307, 8196, 309, 58, 10883, 10880, 10550, 8476, 10871,
    1039, 8207, 9827, 353, 10232, 921, 169, 372, 205, 55334, 9723, 8450, 190, 10806, 8739, 8470, 8608, 1118,
    10922, 55335, 8889, 55336, 10677, 1031, 55337, 8726, 1082, 180, 8817, 8767, 10985, 8874, 8757, 8199,
    352, 8773, 10731, 8838, 55338, 10614, 8724, 339, 8532, 10878, 269, 10, 9711, 60, 8748, 9834, 9656, 8742,
    8806, 10835, 9561, 8742, 8660, 8807, 176, 380, 8243, 10890, 8621, 8772, 1114, 55339, 8935, 363, 8890,
    178, 200, 55340, 9556, 55341, 8726, 10582, 8931, 55342, 8900, 55302, 10938, 55311, 8953, 9564, 55343,
    240, 10926, 10233, 242, 8929, 963, 10949, 168, 8990, 10772, 10072, 8780, 8804, 10229, 8500, 8217, 8617,
    10936, 9829, 34, 8785, 55344, 8712, 1055, 10980, 8916, 8785, 374, 8937, 8465, 8472, 1108, 10955, 9722,
    8459, 10928, 10950, 198, 254, 10099, 8475, 10602, 8849, 937, 9181, 8929, 55345, 8851, 982, 8736, 345,
    8499, 9829, 8927, 8939, 8471, 55346, 10184, 10862, 8789, 1095, 8782, 8222, 8229, 8930, 8716, 95, 8789,
    9560, 8787, 8770, 8724, 8254, 55347, 180, 966, 8646, 9553, 10959, 8636, 8472, 55348, 10609, 8535, 272,
    55349, 1027, 8594, 10535, 10765, 166, 8966, 8970, 8839, 8663, 8926, 286, 8800, 55350, 9651, 55351, 8859,
    10925, 55352, 9667, 8812, 8501, 55353, 55354, 8772, 10905, 8936, 8214, 8796, 55355, 9137, 10811, 1105,
    8868, 926, 8709, 10583, 169, 8492, 43, 8499, 55356, 10944, 55357, 10882, 8941, 213, 62, 1100, 10600,
    10884, 10914, 8220, 8808, 8705, 8884, 8938, 8651, 207, 10718, 55358, 225, 8709, 1068, 55359, 8828,
    10773, 8978, 55313, 10873, 55360, 8411, 10218, 8973, 8922, 10534, 55361, 55362, 10537, 8643, 8774, 8857,
    8878, 365, 10950, 710, 962, 177, 9576, 10575, 978, 8230, 10927, 8756, 10678, 10878, 8848, 8217, 8464,
    55363, 8518, 10230, 168, 250, 215, 8907, 8911, 8476, 8833, 10007, 1060, 55364, 8854, 8704, 10887, 10946,
    8941, 8225, 8665, 8841, 8728, 10585, 10511, 951, 10896, 8596, 8659, 217, 327, 8693, 10843, 236, 1036,
    711, 8601, 8821, 10576, 1079, 55365, 8595, 8861, 8478, 10940, 8764, 8979, 9484, 10688, 8950, 55366, 325,
    10931, 9661, 8602, 9573, 280, 245, 378, 197, 8741, 10752, 10829, 8862, 10667, 8800, 8474, 10536, 913,
    55367, 8852, 8826, 8841, 8814, 8904, 9574, 8969, 55368, 8721, 9140, 8636, 10599, 8864, 8900, 10921,
    8740, 501, 9792, 8764, 8739, 8744, 8459, 10646, 10216, 282, 9251, 8939, 8976, 55325, 9838, 55369, 349,
    10636, 935, 9191, 8940, 10839, 195, 1109, 1029, 10547, 9554, 1064, 10690, 247, 55370, 10214, 10689,
    1107, 8942, 370, 8760, 927, 290, 8858, 341, 8927, 206, 10538, 8621, 8885, 8831, 10607, 8715, 8658,
    10234, 93, 8764, 9733, 8752, 9566, 8641, 8819, 55371, 8944, 318, 362, 55372, 10234, 8969, 10674, 1102,
    8594, 10610, 224, 8826, 9618, 10697, 8703, 8205, 10229, 1098, 10889, 55373, 8658, 977, 55374, 8847,
    9416, 10927, 10524, 9183, 9733, 8806, 10879, 10619, 977, 10231, 251, 8594, 957, 9662, 124, 8711, 8906,
    9666, 8475, 175, 8597, 8882, 8838, 8815, 10754, 10663, 8747, 8784, 8822, 55375, 1089, 8640, 279, 64,
    8677, 1057, 8259, 8715, 8194, 8783, 8657, 10731, 8776, 10832, 8788, 10956, 8635, 8625, 9578, 1013, 8651,
    55376, 8287, 8902, 258, 10232, 322, 8736, 10774, 238, 8755, 55377, 55378, 382, 936, 9562, 10672, 9619,
    8601, 10016, 55326, 8482, 934, 8799, 8279, 8492, 10885, 8201, 8810, 221, 55379, 10613, 10844, 340,
    10990, 8788, 989, 9657, 55380, 8846, 243, 1087, 8778, 10913, 1080, 8913, 10812, 8600, 8839, 55381, 8876,
    10675, 10768, 8216, 1112, 8882, 10574, 1046, 8643, 55382, 8888, 61, 9488, 10962, 259, 8676, 59, 8829,
    8664, 55383, 10901, 10790, 8820, 10234, 170, 1035, 8658, 10800, 10939, 8805, 967, 8611, 8868, 1116,
    8489, 10673, 237, 8882, 55384, 8720, 324, 8484, 364, 9492, 1054, 55385, 1033, 1092, 8608, 8883, 197,
    8226, 10842, 8652, 304, 8195, 8463, 8666, 10984, 8211, 8912, 8712, 8749, 731, 8597, 168, 8500, 10791,
    10670, 8635, 8921, 55386, 8477, 9838, 10236, 8841, 10716, 8218, 222, 10692, 9663, 9575, 925, 285, 8640,
    8644, 8476, 55387, 711, 8625, 260, 8618, 10687, 8823, 10928, 733, 317, 55388, 10526, 10527, 8806, 8203,
    8840, 919, 10220, 55389, 10836, 10934, 10606, 163, 10971, 9827, 10812, 9472, 10942, 55390, 55391, 55392,
    8910, 10604, 9141, 55393, 10909, 55357, 8974, 10900, 9569, 10239, 55394, 231, 8827, 261, 351, 8911,
    8794, 8610, 10894, 1062, 55395, 8872, 9005, 8883, 55396, 381, 10217, 55397, 8202, 55398, 8765, 10752,
    8958, 42, 186, 8715, 8855, 8520, 949, 9794, 10935, 204, 1056, 8497, 8519, 10691, 8603, 8799, 9416,
    10513, 8613, 8902, 10934, 8630, 55399, 55400, 8994, 8504, 10854, 956, 10509, 10579, 8821, 1065, 955,
    8956, 8484, 10217, 8460, 10824, 1063, 95, 10525, 8244, 63, 55401, 10215, 10231, 1042, 8846, 366, 8518,
    275, 8461, 8240, 10640, 55402, 9824, 55403, 226, 55311, 55404, 267, 1069, 8777, 8712, 10512, 8709,
    55405, 1050, 356, 10512, 8592, 8741, 8839, 177, 8645, 730, 55406, 124, 965, 8776, 8667, 8875, 347, 8921,
    8592, 55407, 920, 8772, 8653, 55372, 1099, 55408, 55409, 8720, 10509, 1061, 8758, 55408, 8593, 10893,
    8922, 292, 55410, 8288, 8816, 8464, 8606, 10917, 10967, 10897, 8260, 1032, 8766, 8853, 9652, 39, 567,
    10874, 10906, 306, 181, 281, 9500, 8802, 253, 10508, 55411, 8289, 9568, 10902, 10951, 10236, 8765,
    10876, 1071, 55325, 8954, 55412, 55413, 55414, 8596, 55415, 55416, 1078, 9651, 8745, 8791, 10621, 10878,
    8723, 8781, 8517, 10968, 10903, 8776, 55417, 55418, 9, 10216, 10797, 8825, 10214, 8848, 8465, 8644,
    8641, 10867, 60, 8753, 8473, 8811, 9555, 55419, 8661, 8593, 10771, 8857, 8474, 8780, 968, 8204, 55420,
    8469, 8807, 1041, 55421, 10919, 123, 10827, 8206, 8620, 165, 55422, 10591, 55423, 9645, 8869, 8893,
    8988, 55424, 287, 10588, 10230, 10219, 8805, 305, 55425, 338, 8970, 10723, 1088, 161, 729, 10786, 8873,
    55426, 326, 10662, 10531, 9524, 10837, 1110, 220, 55427, 8719, 10987, 10611, 10928, 8879, 55428, 733,
    255, 230, 10556, 8989, 1119, 8488, 9140, 8988, 9617, 8828, 8645, 375, 8897, 55429, 55430, 8655, 10756,
    8661, 8946, 268, 55431, 10991, 1047, 729, 10587, 8592, 1025, 978, 55432, 8912, 10877, 55433, 10686,
    8701, 8750, 168, 333, 8713, 265, 8640, 10016, 360, 8863, 10886, 918, 55434, 323, 8661, 10724, 302, 8465,
    55435, 8245, 10693, 8824, 10534, 55436, 8971, 8708, 10898, 312, 174, 55437, 8901, 8955, 8603, 1081,
    9649, 8895, 10521, 8706, 8495, 962, 10603, 55438, 8867, 8627, 10770, 8853, 9653, 8819, 55439, 192, 8908,
    320, 36, 1106, 55298, 728, 10769, 216, 357, 8804, 8887, 8653, 9675, 10740, 10961, 1096, 9652, 55440,
    8476, 8612, 8784, 8894, 8945, 922, 55302, 10845, 10866, 8652, 10753, 55441, 10597, 982, 1076, 8519, 233,
    8908, 182, 8966, 10821, 124, 55442, 8542, 9711, 8807, 10932, 10943, 10945, 10586, 332, 8202, 10923,
    9516, 55443, 319, 125, 359, 10753, 8654, 10515, 8596, 1048, 8884, 55444, 346, 8636, 8531, 344, 929,
    8820, 8813, 1014, 10510, 10003, 8899, 10865, 247, 55445, 9186, 10877, 1052, 8865, 41, 9824, 55446,
    55447, 315, 8754, 8865, 10533, 937, 8595, 10872, 1043, 8637, 8920, 42, 8226, 10652, 55444, 9633, 8835,
    1073, 1013, 8657, 316, 965, 1072, 8885, 10838, 203, 932, 8776, 313, 1009, 8733, 9496, 8771, 10549, 1059,
    989, 960, 55448, 8622, 10653, 8639, 8840, 8923, 8613, 55408, 8849, 1008, 8614, 8598, 981, 164, 8947,
    8594, 8639, 10518, 55426, 10537, 10899, 9572, 8705, 8465, 8657, 55449, 8793, 194, 8915, 9720, 55450,
    9567, 8850, 8536, 10886, 8208, 10912, 183, 8940, 8838, 8913, 8708, 8907, 55451, 8829, 232, 1058, 297,
    8917, 219, 174, 55452, 8463, 8659, 55453, 34, 8809, 55454, 10725, 10702, 1097, 8861, 8768, 358, 952,
    9656, 8786, 55455, 8638, 295, 8614, 8647, 55456, 55457, 55400, 10501, 10596, 8250, 10641, 8597, 10888,
    293, 8742, 8539, 8832, 8598, 8460, 342, 8595, 55310, 10988, 55458, 8203, 10815, 8669, 8738, 8849, 10594,
    1038, 10775, 1008, 8828, 9721, 8817, 172, 8809, 8819, 9662, 10229, 8883, 8650, 8919, 8903, 55459, 55460,
    10933, 8735, 55313, 8782, 9532, 10704, 10935, 8245, 10868, 8843, 8750, 10551, 1075, 8822, 55461, 55462,
    10994, 10764, 8249, 1093, 184, 10887, 8611, 8533, 303, 10679, 8845, 8859, 8847, 8827, 8364, 8791, 8886,
    8602, 55463, 271, 8655, 329, 125, 55429, 8599, 55464, 8622, 8647, 9023, 9837, 10825, 8918, 8519, 47,
    8827, 8676, 8891, 1091, 8477, 8737, 8991, 10620, 55419, 1028, 9142, 10801, 8497, 8850, 8951, 10584,
    8540, 55465, 8667, 9136, 8802, 9642, 308, 10869, 10819, 8811, 8905, 8777, 1034, 8197, 201, 8847, 160,
    8746, 9006, 8290, 10498, 8759, 1051, 199, 10916, 55466, 9571, 8831, 8541, 8637, 8764, 8811, 10233,
    55467, 10888, 55468, 9724, 209, 9577, 10904, 10858, 8605, 55469, 8222, 55470, 9021, 175, 8916, 10639,
    1115, 8898, 8975, 8776, 278, 946, 1053, 55471, 8747, 8290, 8968, 9642, 10938, 8739, 8923, 9580, 9141,
    9661, 10807, 10936, 8741, 10966, 55472, 55473, 8931, 1103, 8864, 239, 1074, 8923, 8637, 283, 8739, 8896,
    8634, 55474, 10764, 8737, 9508, 8990, 8649, 10635, 8871, 189, 298, 8626, 8740, 8830, 8592, 8877, 9643,
    10937, 8759, 969, 8858, 35, 10756, 55475, 8642, 8693, 402, 8756, 8482, 62, 8751, 9708, 10947, 55348,
    10969, 917, 10863, 8863, 8619, 8463, 55476, 55477, 10742, 1113, 55478, 961, 8493, 8499, 9633, 8702,
    8728, 8709, 949, 9137, 8835, 368, 8652, 8754, 10816, 8856, 8880, 8991, 214, 8994, 10808, 10701, 8704,
    55479, 8862, 8989, 10956, 202, 8831, 8763, 10533, 8775, 8706, 55480, 8816, 179, 8918, 38, 8733, 10532,
    8801, 10891, 10522, 8466, 33, 8778, 8599, 1013, 8641, 8851, 9667, 55481, 8593, 55482, 193, 10892, 55429,
    8610, 988, 8888, 10920, 8766, 8869, 948, 96, 8928, 10217, 945, 10215, 8850, 296, 264, 252, 8651, 8719,
    10983, 10826, 8788, 8291, 10671, 8466, 96, 981, 37, 8866, 55483, 8743, 1030, 8949, 10809, 8769, 55484,
    10638, 10864, 8805, 94, 8220, 8815, 10927, 10881, 8469, 10593, 8965, 8783, 10577, 8926, 10617, 8787,
    8734, 379, 8834, 10230, 55485, 8982, 8801, 8833, 273, 10664, 923, 10233, 8897, 977, 8503, 10875, 8840,
    38, 8786, 8450, 55486, 10788, 8638, 55487, 262, 44, 10989, 8594, 211, 10606, 8221, 8781, 55488, 8496,
    8830, 8777, 8829, 9600, 55489, 289, 8726, 174, 8654, 10948, 10598, 8241, 8757, 1040, 8796, 8817, 10643,
    8776, 8968, 355, 10578, 8648, 1070, 8224, 8726, 8708, 10803, 964, 274, 8660, 93, 8733, 8773, 8639, 8716,
    8757, 8605, 916, 1067, 785, 10622, 210, 10828, 8909, 8707, 234, 9570, 8830, 9663, 10823, 92, 933, 10568,
    10569, 914, 8630, 223, 162, 8726, 9674, 354, 55436, 10098, 10933, 10717, 8755, 55368, 10955, 10911,
    55490, 55491, 185, 8716, 8624, 10798, 10918, 55485, 10982, 8646, 8208, 8615, 8600, 8218, 8823, 348, 184,
    330, 10683, 8612, 8271, 8212, 10605, 228, 10949, 962, 915, 55492, 55493, 8808, 227, 8592, 55494, 8493,
    9579, 9830, 8885, 1086, 8492, 8200, 377, 10231, 1014, 123, 10660, 8790, 55495, 1084, 8943, 8715, 8643,
    8642, 10668, 8730, 8629, 10681, 9839, 55298, 8660, 9474, 8744, 55496, 10642, 55497, 55498, 8741, 8890,
    284, 8624, 8867, 10612, 10810, 10960, 8834, 8842, 10805, 10608, 728, 10684, 8713, 8896, 8254, 8713,
};

// Two characters, or one beyond 16 bits.
constexpr std::uint16_t FIRST_SPECIAL = 0xd800;
constexpr char32_t SPECIAL[203][2] = {
    {0x228a,0xfe00}, {0x226a,0x338}, {0x2a7e,0x338}, {0x1d530,0x0}, {0x1d49c,0x0}, {0x1d552,0x0},
    {0x2282,0x20d2}, {0x1d52a,0x0}, {0x1d4c8,0x0}, {0x1d4b3,0x0}, {0x1d4ae,0x0}, {0xfb00,0x0},
    {0x1d51f,0x0}, {0x1d52f,0x0}, {0x2269,0xfe00}, {0x2283,0x20d2}, {0x1d518,0x0}, {0x2a7d,0x338},
    {0x1d569,0x0}, {0x1d4ca,0x0}, {0x1d4cd,0x0}, {0x3c,0x20d2}, {0x1d508,0x0}, {0x1d561,0x0}, {0x1d4cc,0x0},
    {0x1d524,0x0}, {0x1d4b2,0x0}, {0x2aa1,0x338}, {0x1d54d,0x0}, {0x2ab0,0x338}, {0x2268,0xfe00},
    {0x1d55e,0x0}, {0x1d54b,0x0}, {0x1d550,0x0}, {0x1d50a,0x0}, {0x1d4b5,0x0}, {0x1d50d,0x0},
    {0x2aa2,0x338}, {0x226b,0x20d2}, {0x1d55f,0x0}, {0x1d52e,0x0}, {0x1d519,0x0}, {0x1d533,0x0},
    {0x2294,0xfe00}, {0x1d540,0x0}, {0x1d54f,0x0}, {0x2229,0xfe00}, {0x226a,0x20d2}, {0x1d512,0x0},
    {0x1d52d,0x0}, {0x1d4cf,0x0}, {0x223c,0x20d2}, {0x2acc,0xfe00}, {0x22d9,0x338}, {0x1d558,0x0},
    {0x1d52c,0x0}, {0x1d49f,0x0}, {0x1d54a,0x0}, {0x1d4be,0x0}, {0x29d0,0x338}, {0x1d560,0x0},
    {0x224f,0x338}, {0x29cf,0x338}, {0x1d542,0x0}, {0x66,0x6a}, {0x222a,0xfe00}, {0x2a6d,0x338},
    {0x1d4ce,0x0}, {0x1d4a9,0x0}, {0x1d567,0x0}, {0x1d504,0x0}, {0x1d4bb,0x0}, {0x2ac5,0x338},
    {0x1d4cb,0x0}, {0x1d4c1,0x0}, {0x2250,0x338}, {0x2242,0x338}, {0x1d513,0x0}, {0x2264,0x20d2},
    {0x1d51b,0x0}, {0x2290,0x338}, {0x1d51e,0x0}, {0x1d521,0x0}, {0x22db,0xfe00}, {0xfb01,0x0},
    {0x1d4a5,0x0}, {0x1d562,0x0}, {0x3d,0x20e5}, {0x1d510,0x0}, {0x1d49e,0x0}, {0x1d4b1,0x0}, {0x1d525,0x0},
    {0x1d4b7,0x0}, {0x2aac,0xfe00}, {0x227f,0x338}, {0x1d4af,0x0}, {0x1d553,0x0}, {0x1d4bf,0x0},
    {0x1d557,0x0}, {0x1d505,0x0}, {0x1d4b4,0x0}, {0x1d53c,0x0}, {0x1d4b6,0x0}, {0x22f9,0x338},
    {0x2acb,0xfe00}, {0x1d538,0x0}, {0x3e,0x20d2}, {0x1d53e,0x0}, {0x1d56b,0x0}, {0x1d546,0x0},
    {0x1d4b8,0x0}, {0x1d563,0x0}, {0x2aaf,0x338}, {0x1d4c2,0x0}, {0x1d55a,0x0}, {0x2afd,0x20e5},
    {0x1d528,0x0}, {0x1d543,0x0}, {0x1d565,0x0}, {0x1d4b9,0x0}, {0x224b,0x338}, {0x1d53b,0x0},
    {0x1d54e,0x0}, {0x2266,0x338}, {0x1d55b,0x0}, {0x1d523,0x0}, {0x1d507,0x0}, {0x1d527,0x0},
    {0x1d56a,0x0}, {0x1d526,0x0}, {0x228b,0xfe00}, {0x22d8,0x338}, {0x2293,0xfe00}, {0x2267,0x338},
    {0x1d4c6,0x0}, {0x1d544,0x0}, {0x1d541,0x0}, {0x22b4,0x20d2}, {0x1d511,0x0}, {0x1d4c7,0x0},
    {0x226b,0x338}, {0x1d4a6,0x0}, {0x224d,0x20d2}, {0xfb03,0x0}, {0x1d536,0x0}, {0x1d4c3,0x0},
    {0x1d534,0x0}, {0x205f,0x200a}, {0x2ac6,0x338}, {0x1d50e,0x0}, {0x2aad,0xfe00}, {0x1d556,0x0},
    {0x2220,0x20d2}, {0x1d520,0x0}, {0x219d,0x338}, {0x1d554,0x0}, {0x1d4bd,0x0}, {0x22f5,0x338},
    {0x22b5,0x20d2}, {0x1d55c,0x0}, {0x1d4b0,0x0}, {0x1d564,0x0}, {0x1d54c,0x0}, {0x1d535,0x0},
    {0x1d4ab,0x0}, {0x1d4ac,0x0}, {0x1d516,0x0}, {0x1d514,0x0}, {0x223d,0x331}, {0x1d537,0x0},
    {0x1d517,0x0}, {0x1d532,0x0}, {0x1d53d,0x0}, {0x1d4a2,0x0}, {0x1d566,0x0}, {0x1d4c5,0x0}, {0x1d4c9,0x0},
    {0xfb04,0x0}, {0x1d522,0x0}, {0x1d52b,0x0}, {0x1d509,0x0}, {0x223e,0x333}, {0x2265,0x20d2},
    {0x1d51a,0x0}, {0x1d51c,0x0}, {0x2933,0x338}, {0x2202,0x338}, {0x2261,0x20e5}, {0x1d568,0x0},
    {0x224e,0x338}, {0x1d555,0x0}, {0x22da,0xfe00}, {0x1d55d,0x0}, {0x1d4aa,0x0}, {0x1d539,0x0},
    {0x228f,0x338}, {0x2a70,0x338}, {0x1d4c0,0x0}, {0x1d50f,0x0}, {0x1d531,0x0}, {0x1d529,0x0},
    {0xfb02,0x0}, {0x1d559,0x0},
};

// By the hash of a name: what sends each name of the bucket to a slot of its own.
constexpr std::uint16_t SEEDS[512] = {
    156, 16, 22, 18, 133, 0, 81, 5, 3, 12, 0, 4, 2, 18, 239, 1, 1, 102, 10, 2, 6, 11, 0, 0, 301, 0, 48, 6,
    426, 8, 99, 5, 69, 2, 17, 11, 9, 29, 52, 40, 62, 7, 633, 33, 47, 84, 16, 68, 12, 21, 168, 137, 130, 0,
    102, 22, 3, 45, 16, 2, 4, 307, 3, 25, 104, 17, 133, 176, 6, 273, 10, 207, 1, 93, 6, 4, 2, 3, 57, 4, 19,
    4, 373, 5, 478, 210, 7, 42, 192, 0, 28, 3, 90, 355, 421, 7, 107, 27, 199, 1, 247, 11, 14, 5, 30, 1, 14,
    42, 143, 47, 0, 12, 3, 0, 37, 17, 235, 0, 54, 1, 6, 12, 164, 27, 94, 128, 29, 12, 4, 22, 1, 12, 1, 1, 0,
    544, 4, 39, 3, 0, 0, 45, 44, 9, 1, 57, 3, 3, 34, 0, 51, 30, 13, 209, 4, 39, 1, 276, 0, 327, 20, 37, 16,
    149, 780, 22, 28, 22, 0, 0, 81, 62, 108, 9, 3, 124, 33, 5, 58, 0, 13, 10, 1, 0, 125, 281, 100, 51, 22,
    53, 10, 2, 13, 1, 219, 10, 0, 2, 14, 3, 8, 353, 10, 121, 25, 447, 39, 5, 1, 155, 4, 138, 521, 0, 75, 6,
    80, 416, 166, 283, 267, 127, 0, 7, 149, 0, 246, 20, 54, 58, 14, 3, 15, 48, 1, 115, 1, 6, 209, 6, 7, 360,
    216, 23, 115, 0, 823, 41, 2, 161, 17, 23, 98, 7, 500, 134, 658, 65, 124, 48, 48, 117, 419, 4, 1, 409,
    158, 26, 2, 84, 23, 57, 676, 18, 635, 118, 68, 5, 16, 3, 5, 219, 2016, 81, 112, 29, 1723, 38, 0, 8, 10,
    7, 215, 118, 0, 1110, 149, 2, 43, 14, 16, 72, 5, 216, 0, 15, 200, 3, 75, 482, 1083, 1, 94, 141, 964,
    371, 48, 4, 53, 529, 1654, 6, 155, 0, 3, 55, 1, 0, 0, 89, 64, 2, 347, 170, 9, 3, 226, 968, 57, 136, 14,
    12, 124, 40, 225, 1, 2, 172, 569, 238, 19, 0, 0, 353, 67, 119, 0, 672, 1147, 529, 12, 216, 272, 5, 3063,
    3, 1239, 2, 3, 1, 99, 9, 0, 311, 87, 67, 11, 5, 79, 82, 2364, 1, 1435, 72, 102, 55, 0, 278, 85, 6, 16,
    581, 698, 662, 142, 248, 1158, 803, 54, 9, 818, 1186, 41, 449, 4, 73, 75, 2398, 22, 59, 10, 134, 1403,
    3147, 72, 1406, 44, 75, 3, 229, 332, 73, 38, 227, 879, 53, 2, 271, 1, 2336, 0, 9, 7, 0, 978, 74, 100,
    55, 658, 150, 358, 4244, 50, 1438, 66, 80, 101, 963, 29, 44, 112, 153, 2038, 2778, 594, 857, 1354, 52,
    1, 621, 859, 226, 8, 382, 196, 85, 670, 81, 512, 0, 2897, 2, 85, 6, 0, 825, 138, 67, 1487, 8, 0, 188,
    164, 444, 135, 2304, 25, 34, 4389, 72, 0, 41, 17, 203, 244, 0, 3758, 264, 231, 17, 2, 768, 0, 1018, 37,
    181, 77, 2, 3211, 0, 204, 2250,
};
// clang-format on

} // namespace pageslice::character_names

#endif
