// The menu bar's handlers: one per item, named after it. All run where a loop yields, between two frames.
#pragma once

void Menu002_Click();
void Menu003_Click();
void Menu004_Click();
void Menu006_Click();
void Menu008_Click();
void MENU101_Click();
void MENU102_Click();
void MENU103_Click();
void Menu401_Click();
void Menu402_Click();
void Menu403_Click();
void Menu404_Click();
void Menu201_Click();
void Menu202_Click();
void Menu203_Click();
void Menu301_Click();
void Menu303_Click();

// Gives the items of `MainForm` their handlers. Called by LoadMainForm.
void ConnectMenus();
