// First boss, 105 x 150: a gunship with two pincers around its core.
#include "common.inc"
#include "enemies.inc"
#include "bosses.inc"

#declare Side = union {
  // back shoulder
  object { Plate(array[9]{<6,64>,<12,68>,<26,68>,<34,74.5>,<46,58>,<52,38>,<50,6>,<34,-6>,<6,0>}, -4, 6, 4.5) Hull(C_GunD) }
  // armour on the shoulder
  object { Plate(array[6]{<20,66>,<33,63>,<42,53>,<46.5,37>,<38,34>,<22,50>}, 5, 10, 2.6) Paint(C_Oxide) }
  object { Plate(array[5]{<22,46>,<36,31>,<46,33>,<45,12>,<24,12>}, 5, 9, 2.2) Hull(C_Gun) }
  Turret(35, 47, 10, 6, 10 + 16*OPEN)
  Vent(31, 22, 9, 11, 12, 4)
  Lamps(41.6, 29, 41.6, 15, 9, 4, 1.1, C_Amber)
  // engine
  cylinder { <19,56,2>, <19,67,2>, 7 Paint(C_GunDD) }
  torus { 6.2, 1.4 translate <19, 67, 2> Metal(C_Brass) }
  object { Jet(19, 68.5, 4, 5, -(3 + 2*OPEN), C_Amber, C_Yellow) }
  // lower hull
  object { Plate(array[6]{<4,6>,<26,8>,<30,-8>,<22,-30>,<12,-50>,<4,-52>}, -2, 8, 3.6) Hull(C_Gun) }
  object { Plate(array[4]{<16,-10>,<24,-11>,<17,-29>,<12,-28>}, 7, 9.6, 1) Paint(C_Oxide) }
  Fittings(9, -40, 13, -20, 8, 5, 11)
  Gun(14, -36, -66, 6, 2.4)
  // pincer
  union {
    object { Plate(array[9]{<32,8>,<44,12>,<52,0>,<52,-34>,<46,-60>,<36,-74.5>,<38,-56>,<35,-34>,<29,-14>}, 0, 11, 4.2) Hull(C_GunD) }
    object { Plate(array[6]{<40,4>,<48,-3>,<48,-32>,<43.5,-54>,<43,-34>,<39,-14>}, 10, 13.5, 1.8) Hull(C_Gun) }
    object { Plate(array[4]{<44,-36>,<47.4,-34>,<43.6,-56>,<40,-66>}, 11, 15, 1.2) Metal(C_Bone) }
    Lamps(44, -4, 44, -28, 13.6, 5, 1.4, C_Red)
    sphere { 0, 1 scale <7, 7, 5> translate <39, 2, 11> Metal(C_Gun) }
    sphere { 0, 1 scale <3, 3, 3> translate <39, 2, 15> Glow(C_Amber, 0.7 + 0.3*OPEN) }
    translate <-40, -2, 0> rotate z*(-4 + 6*OPEN) translate <40, 2, 0>
    translate x*(-0.5)
  }
}
Both(Side)
object { SymPlate(array[9]{<0,74>,<8,72>,<13,60>,<16,36>,<18,8>,<14,-14>,<9,-40>,<5,-68>,<0,-74.5>}, 2, 15, 4.2) Hull(C_GunD) }
object { SymPlate(array[6]{<0,66>,<5.5,63>,<9,50>,<10,38>,<5,33>,<0,32>}, 14, 19, 2) Paint(C_Oxide) }
object { SymPlate(array[4]{<0,-26>,<5,-28>,<2.6,-62>,<0,-68>}, 13, 18, 1.6) Hull(C_Gun) }
object { Plate(array[4]{<-5,58>,<5,58>,<6,53>,<-6,53>}, 18, 20, 0.6) Glow(C_Amber, 0.65 + 0.35*OPEN) }
Lamps(0, -32, 0, -56, 18, 5, 1.2, C_Red)
Both(object { Fittings(6, 22, 10, 36, 15, 4, 5) })
Both(object { Plate(array[4]{<6,-9>,<13,-8>,<9,-28>,<6.4,-26>}, 14, 17, 1.2) Paint(C_Oxide) })
#local O = array[1]; NGon(12, 16.6, 15, O)
object { Plate(O, 10, 15.4, 1.6) translate y*6 Hull(C_Gun) }
object { Core(0, 6, 15, 12.5, 6, C_Red, C_Yellow) }
