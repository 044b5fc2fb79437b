// Debian's Chromium for the tests, with nothing of a user's.
import { chromium } from 'playwright-core';

export function launchBrowser() {
  return chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: [
      '--no-sandbox',
      '--disable-gpu',
      '--disable-dev-shm-usage', // small in a container
      '--disable-quic',
      '--no-first-run',
      '--disable-background-networking',
      '--disable-component-update',
      '--disable-sync',
    ],
  });
}
