// Takes the picture of the page that the README shows: npm run picture.
import { fileURLToPath } from 'node:url';
import { afterAll, beforeAll, it } from 'vitest';
import { closeBrowser, openBrowser, Person } from './person';

const picture = fileURLToPath(new URL('../../../../../docs/pictures/page.png', import.meta.url));

beforeAll(openBrowser);
afterAll(closeBrowser);

it('takes a picture', async () => {
    const person = await Person.open({ viewport: { width: 1440, height: 820 } });
    await person.opensExample('Amazing grace');
    await person.seesMusic();
    await person.page.locator('#score svg text').filter({ hasText: /^3$/ }).nth(1).click();
    await person.page.mouse.move(0, 0);
    await person.page.waitForTimeout(500);
    await person.page.screenshot({ path: picture });
    await person.leave();
});
